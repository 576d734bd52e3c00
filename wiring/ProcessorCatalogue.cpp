#include "wiring/ProcessorCatalogue.h"

#include <QFile>

#include <algorithm>

namespace {
bool isCard(const QString &names, const QString &card)
{
    if (names == card)
        return true;
    const QStringList parts = names.split(',');
    return std::any_of(parts.begin(), parts.end(), [&](const QString &part) { return part.trimmed() == card; });
}

ProcessorCatalogue readBuiltIn()
{
    QFile file(":/data/processors.json");
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The processors are not in the program.");
    const Result<ProcessorCatalogue> catalogue = ProcessorCatalogue::read(file.readAll());
    if (!catalogue)
        qFatal("processors.json: %s", qUtf8Printable(catalogue.error().text));
    return *catalogue;
}
} // namespace

const ProcessorCatalogue &ProcessorCatalogue::builtIn()
{
    static const ProcessorCatalogue catalogue = readBuiltIn();
    return catalogue;
}

ProcessorCatalogue ProcessorCatalogue::without(const QString &model) const
{
    ProcessorCatalogue rest = *this;
    std::erase_if(rest.m_models, [&](const ProcessorModel &each) { return each.model == model; });
    return rest;
}

const ProcessorModel *ProcessorCatalogue::model(const QString &name) const
{
    const auto isNamed = [&](const ProcessorModel &model) { return model.model == name; };
    const auto found = std::find_if(m_models.begin(), m_models.end(), isNamed);
    return found == m_models.end() ? nullptr : &*found;
}

std::vector<const CapacityModel *> ProcessorCatalogue::capacityModelsOf(const ProcessorModel &model,
                                                                        const QString &card) const
{
    if (model.cards.empty())
        return {&m_capacityModels.at(model.capacityModel)};
    std::vector<const CapacityModel *> all;
    for (const auto &[names, capacityModel] : model.cards) {
        if (isCard(names, card))
            return {&m_capacityModels.at(capacityModel)};
        all.push_back(&m_capacityModels.at(capacityModel));
    }
    return all;
}
