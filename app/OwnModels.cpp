#include "app/OwnModels.h"

#include "base/FileBytes.h"
#include "base/StateFolder.h"

#include <QDir>
#include <QUrl>

#include <algorithm>

namespace {
constexpr qint64 mostModelBytes = 1 << 20;

/// Any name is one of a file there.
QString fileOf(const QString &model, const QString &folder)
{
    return folder + '/' + QString::fromLatin1(QUrl::toPercentEncoding(model)) + ".json";
}
} // namespace

namespace OwnModels {

QString standardPath()
{
    return StateFolder::path("processors");
}

Found in(const QString &folder)
{
    Found found;
    for (const QString &name : QDir(folder).entryList({"*.json"}, QDir::Files)) {
        const QString path = folder + '/' + name;
        Result<OwnModel> model =
            FileBytes::read(path, mostModelBytes).and_then([](const QByteArray &bytes) { return OwnModel::of(bytes); });
        if (model)
            found.models.push_back(std::move(*model));
        else
            found.faults.append(QString("%1 is no model of a processor: %2").arg(path, model.error().text));
    }
    std::ranges::sort(found.models, {}, [](const OwnModel &model) { return model.model()->model; });
    return found;
}

Result<void> keep(const OwnModel &model, const QString &folder)
{
    const QString name = model.model()->model;
    const QString path = fileOf(name, folder);
    if (ProcessorCatalogue::builtIn().model(name) || QFile::exists(path))
        return fail(QString("There is a model \"%1\" already; choose another name.").arg(name));
    if (!QDir().mkpath(folder))
        return fail(QString("The folder %1 cannot be made.").arg(folder));
    return FileBytes::write(path, model.text());
}

} // namespace OwnModels
