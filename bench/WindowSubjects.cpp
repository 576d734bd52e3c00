#include "bench/WindowSubjects.h"

#include "bench/Charts.h"
#include "canvas/LWCanvasImageView.h"
#include "layer/Layer.h"
#include "windows/MainWindow.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <benchmark/benchmark.h>
#include <memory>

namespace {
constexpr QSize shown(1280, 720);
constexpr QSize eightK(7680, 4320);
constexpr int panelSide = 128;

qint64 bytesOf(const QSize &output)
{
    return qint64{4} * output.width() * output.height();
}

/// An output that nobody edits.
class StillDocument final : public CanvasDocument
{
public:
    explicit StillDocument(const QSize &output) : m_output{Charts::picture(output)} {}

    int OutputWidth() const override { return m_output.picture.width(); }
    int OutputHeight() const override { return m_output.picture.height(); }
    const ComposedOutput &output() const override { return m_output; }
    /// As the next composition does.
    void composeAnew() { m_output.picture.bits(); }
    LayerPointer selectedLayer() const override { return {}; }
    std::vector<LayerPointer> layers() const override { return {}; }
    std::vector<LayerPointer> selectedLayers() const override { return {}; }
    CableHand::Show cables() const override { return {}; }
    void select(const LayerPointer &, bool) override {}
    void nudge(const QPoint &) override {}
    void update(QObject *) override {}
    void finishEdit(const QString &) override {}

private:
    ComposedOutput m_output;
};

/// A canvas, the output in it, and the pixels that it is painted on.
struct PaintedCanvas
{
    explicit PaintedCanvas(const QSize &output) : document(output)
    {
        constexpr QSize margins(2 * LWCanvasImageView::margin, 2 * LWCanvasImageView::margin);
        view.resize(shown + margins);
        view.showOutput();
        screen = QImage(view.size(), QImage::Format_RGB32);
    }

    StillDocument document;
    LWCanvasImageView view{document};
    QImage screen;
};

QLineEdit *nameField(MainWindow &window)
{
    for (QLineEdit *field : window.findChildren<QLineEdit *>()) {
        if (field->accessibleName() == "Name")
            return field;
    }
    return nullptr;
}

/// The program's window with a show in it, and a person who types into the name of its wall.
class TypedWindow
{
public:
    TypedWindow()
    {
        window.makeLateParts();
        window.start();
    }

    void type()
    {
        const bool isLetter = m_keys++ % 2 == 0;
        window.document().timerupdate(); // as if nobody had typed for a while
        QKeyEvent press(QEvent::KeyPress, isLetter ? Qt::Key_X : Qt::Key_Backspace, Qt::NoModifier,
                        isLetter ? "x" : QString());
        QCoreApplication::sendEvent(nameField(window), &press);
        QCoreApplication::processEvents();
    }

    MainWindow window;

private:
    int m_keys = 0;
};

/// The first wall already has its fill, circle and texts.
void coverOutput(Layer &wall)
{
    wall.setPanelWidth(panelSide);
    wall.setPanelHeight(panelSide);
    wall.setCol(eightK.width() / panelSide);
    wall.setRow(eightK.height() / panelSide);
    wall.setBoarderEnable(true);
    wall.setDrawLabels(true);
    wall.setLabelColor(NamedColour::white);
    wall.setLabelFontSize(40);
    wall.setDrawFlowPath(true);
    wall.setPixelLimit(655360);
    wall.drawInRect();
}

Subject keystroke(const std::shared_ptr<TypedWindow> &typed)
{
    LWAppDelegate &document = typed->window.document();
    return {bytesOf({document.OutputWidth(), document.OutputHeight()}), [typed] { typed->type(); }};
}
} // namespace

namespace WindowSubjects {

Subject canvas(const QSize &output, Paint paint)
{
    const auto painted = std::make_shared<PaintedCanvas>(output);
    const auto run = [painted, paint] {
        if (paint == Paint::AfterAnEdit) {
            painted->document.composeAnew();
            painted->view.showOutput();
        }
        painted->view.render(&painted->screen);
        benchmark::DoNotOptimize(painted->screen.constBits());
    };
    return {bytesOf(output), run};
}

Subject keystrokeInExample(const QString &name)
{
    const auto typed = std::make_shared<TypedWindow>();
    typed->window.document().openProjectPre(QString(EXAMPLES) + name + ".json");
    return keystroke(typed);
}

Subject keystrokeIn8K()
{
    const auto typed = std::make_shared<TypedWindow>();
    LWAppDelegate &document = typed->window.document();
    document.setOutputWidth(eightK.width());
    document.setOutputHeight(eightK.height());
    coverOutput(*document.arraycontroller().selectedLayer());
    document.finishEdit("Cover Output");
    return keystroke(typed);
}

} // namespace WindowSubjects
