#include "wiring/ProcessorFields.h"

#include <QStringList>

#include <limits>
#include <type_traits>

namespace {
constexpr int mostBits = 16;
constexpr int mostHeadroom = 99;
constexpr int mostStreams = 16;

template <auto member>
using TypeOf = std::remove_cvref_t<decltype(std::declval<ProcessorSettings>().*member)>;

template <auto member>
QVariant get(const ProcessorSettings &settings)
{
    return QVariant::fromValue(settings.*member);
}

template <auto member>
bool set(ProcessorSettings &settings, const QVariant &value)
{
    settings.*member = value.value<TypeOf<member>>();
    return true;
}

template <auto member, auto least, auto most>
bool setWithin(ProcessorSettings &settings, const QVariant &value)
{
    const auto given = value.value<TypeOf<member>>();
    return given >= least && given <= most && set<member>(settings, value);
}

bool setRate(ProcessorSettings &settings, const QVariant &value)
{
    const double rate = value.toDouble(); // a comparison with what is no number is false
    return rate >= ProcessorSettings::lowestRate && rate <= ProcessorSettings::highestRate &&
           set<&ProcessorSettings::rate>(settings, value);
}

bool setName(ProcessorSettings &settings, const QVariant &value)
{
    return !value.toString().isEmpty() && set<&ProcessorSettings::name>(settings, value);
}

const QStringList &backups()
{
    static const QStringList names{"none", "loop", "processor"};
    return names;
}

QVariant getBackup(const ProcessorSettings &settings)
{
    return backups().at(static_cast<int>(settings.backup));
}

bool setBackup(ProcessorSettings &settings, const QVariant &value)
{
    const qsizetype backup = backups().indexOf(value.toString());
    if (backup >= 0)
        settings.backup = static_cast<ProcessorSettings::Backup>(backup);
    return backup >= 0;
}

template <auto member>
ProcessorField field(const char *name, bool (*setter)(ProcessorSettings &, const QVariant &), const char *expected = "",
                     bool isAlwaysWritten = true)
{
    return {name, QMetaType::fromType<TypeOf<member>>(), get<member>, setter, expected, isAlwaysWritten};
}

QVariant getOwn(const ProcessorSettings &settings)
{
    return QString::fromUtf8(settings.own.text());
}

bool setOwn(ProcessorSettings &settings, const QVariant &value)
{
    const QString text = value.toString();
    const Result<OwnModel> own = text.isEmpty() ? OwnModel() : OwnModel::of(text.toUtf8());
    if (own)
        settings.own = *own;
    return own.has_value();
}

using Settings = ProcessorSettings;
constexpr qint64 mostPixels = std::numeric_limits<int>::max();
} // namespace

bool ProcessorField::isWritten(const ProcessorSettings &settings) const
{
    return isAlwaysWritten || get(settings) != get(ProcessorSettings());
}

std::span<const ProcessorField> processorFields()
{
    static const ProcessorField fields[]{
        field<&Settings::name>("name", setName, "a name"),
        field<&Settings::model>("model", set<&Settings::model>),
        field<&Settings::bits>("bits", setWithin<&Settings::bits, 1, mostBits>, "1 to 16 bit"),
        field<&Settings::rate>("rate", setRate, "23.976 to 240 Hz"),
        field<&Settings::card>("card", set<&Settings::card>),
        field<&Settings::lowLatency>("lowLatency", set<&Settings::lowLatency>),
        {"backup", QMetaType::fromType<QString>(), getBackup, setBackup, "\"none\", \"loop\" or \"processor\""},
        field<&Settings::headroom>("headroom", setWithin<&Settings::headroom, 0, mostHeadroom>, "0 to 99 per cent"),
        field<&Settings::capacity>("capacity", setWithin<&Settings::capacity, 0, mostPixels>, "0 to 2147483647 px"),
        field<&Settings::backupProcessor>("backupProcessor", set<&Settings::backupProcessor>, "", false),
        field<&Settings::streams>("streams", setWithin<&Settings::streams, 1, mostStreams>, "1 to 16 streams", false),
        field<&Settings::rectangleWhereUnsaid>("rectangleWhereUnsaid", set<&Settings::rectangleWhereUnsaid>, "", false),
        {"own", QMetaType::fromType<QString>(), getOwn, setOwn, "the description of one model", false},
    };
    return fields;
}
