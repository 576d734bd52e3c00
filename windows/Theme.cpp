#include "windows/Theme.h"

#include "windows/Desktop.h"
#include "windows/Icons.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QPalette>
#include <QProxyStyle>
#include <QToolTip>

#include <system_error>
#include <thread>
#include <utility>

namespace {
/// Looks for the machine's fonts where it has been told to.
std::jthread &fontFinder()
{
    static std::jthread finder;
    return finder;
}

const QString &family()
{
    static const QString name = [] {
        const int regular = QFontDatabase::addApplicationFont(":/fonts/Inter-Regular.otf");
        return QFontDatabase::applicationFontFamilies(regular).value(0);
    }();
    return name;
}

QFont fontOfSize(int pixels)
{
    QFont font(family());
    font.setPixelSize(pixels);
    return font;
}

/// Fusion, with an own sign where entries of the menu bar have no room: reading Fusion's picture of it makes each start
/// load every reader of pictures that there is, and it is dark.
class WindowStyle final : public QProxyStyle
{
public:
    WindowStyle() : QProxyStyle("Fusion") {}

    QIcon standardIcon(StandardPixmap sign, const QStyleOption *option, const QWidget *widget) const override
    {
        return sign == SP_ToolBarHorizontalExtensionButton ? Icons::icon("chevron-double-right")
                                                           : QProxyStyle::standardIcon(sign, option, widget);
    }
};

QPalette palette()
{
    QPalette colours(Theme::raised, Theme::panel);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, Theme::text);
    colours.setColor(QPalette::BrightText, Theme::warning);
    colours.setColor(QPalette::PlaceholderText, Theme::dimText);
    colours.setColor(QPalette::Base, Theme::ground);
    colours.setColor(QPalette::AlternateBase, Theme::panel);
    colours.setColor(QPalette::ToolTipBase, Theme::raised);
    colours.setColor(QPalette::ToolTipText, Theme::text);
    colours.setColor(QPalette::Highlight, Theme::accent);
    colours.setColor(QPalette::Mid, Theme::line);
    colours.setColor(QPalette::HighlightedText, Theme::ground);
    colours.setColor(QPalette::Link, Theme::accent);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, Theme::dimText);
    return colours;
}

QString styleSheet()
{
    QFile file(":/windows/theme.qss");
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The program lacks its own style sheet.");
    QString sheet = QString::fromUtf8(file.readAll());
    const std::pair<const char *, QColor> names[] = {
        {"@ground", Theme::ground}, {"@panel", Theme::panel},     {"@raised", Theme::raised},
        {"@line", Theme::line},     {"@text", Theme::text},       {"@dimText", Theme::dimText},
        {"@accent", Theme::accent}, {"@warning", Theme::warning}, {"@danger", Theme::danger},
        {"@chosen", Theme::chosen},
    };
    for (const auto &[name, colour] : names)
        sheet.replace(name, colour.name());
    return sheet;
}
} // namespace

void Theme::findFonts()
{
    try {
        fontFinder() = std::jthread(&Desktop::findFonts);
    } catch (const std::system_error &) { // no thread is to be had: they are looked for when they are needed
    }
}

void Theme::apply()
{
    if (fontFinder().joinable())
        fontFinder().join(); // Qt would look for them a second time
    Desktop::keepLooks();
    QApplication::setStyle(new WindowStyle);
    QApplication::setPalette(palette());
    QApplication::setFont(fontOfSize(textSize));
    QToolTip::setPalette(palette());
    QToolTip::setFont(fontOfSize(textSize));
    qApp->setStyleSheet(styleSheet());
}

QFont Theme::smallFont()
{
    return fontOfSize(smallTextSize);
}

QFont Theme::figureFont()
{
    return fontOfSize(figureTextSize);
}

QFont Theme::titleFont()
{
    static const int semiBold = QFontDatabase::addApplicationFont(":/fonts/Inter-SemiBold.otf");
    Q_ASSERT(semiBold >= 0);
    QFont font = smallFont();
    font.setWeight(QFont::DemiBold);
    font.setCapitalization(QFont::AllUppercase);
    return font;
}

void Theme::colourText(QWidget &widget, const QColor &colour)
{
    QPalette colours = widget.palette();
    colours.setColor(QPalette::WindowText, colour);
    widget.setPalette(colours);
}

void Theme::frameAsWrong(QWidget &field, bool isWrong)
{
    field.setProperty("isWrong", isWrong); // the style sheet asks for it
    field.style()->unpolish(&field);
    field.style()->polish(&field);
}

QLabel *Theme::title(const QString &words, QWidget *buddy)
{
    auto *label = new QLabel(words);
    label->setFont(titleFont());
    colourText(*label, dimText);
    label->setBuddy(buddy);
    return label;
}
