#pragma once

#include "base/Result.h"
#include "wiring/ProcessorModel.h"

#include <map>
#include <vector>

/// All processors that are known, with their figures and where those come from. Facts only: what follows from them is
/// worked out by PortCapacity.
class ProcessorCatalogue
{
public:
    /// The models that come with the program, read when they are first asked for. Main thread first.
    static const ProcessorCatalogue &builtIn();

    /// Reads a file of models: the program's own, or a person's, which may refer to sources, capacity models and rules
    /// of `base` and adds to it.
    /// Error: no such file, a value that is missing or out of range, a name that leads nowhere or is there already; the
    /// message names the entry.
    [[nodiscard]] static Result<ProcessorCatalogue> read(const QByteArray &json, const ProcessorCatalogue &base = {});

    /// By family, in the order of the files.
    const std::vector<ProcessorModel> &models() const { return m_models; }
    const std::map<QString, CapacityModel> &capacityModels() const { return m_capacityModels; }
    const std::map<QString, PortRules> &rules() const { return m_rules; }
    const std::map<QString, FigureSource> &sources() const { return m_sources; }

    /// The same without the model of that name.
    ProcessorCatalogue without(const QString &model) const;

    /// Null: there is none of that name.
    const ProcessorModel *model(const QString &name) const;
    /// Of a model of this catalogue; those it names are there.
    const PortRules &rulesOf(const ProcessorModel &model) const { return m_rules.at(model.rules); }
    /// With one of its cards ("A10s Pro"), by the whole name on the list or a part between its commas. More than one
    /// where the card matters and is none of them: the lower figure counts.
    std::vector<const CapacityModel *> capacityModelsOf(const ProcessorModel &model, const QString &card) const;

private:
    friend class CatalogueReader;

    std::vector<ProcessorModel> m_models;
    std::map<QString, CapacityModel> m_capacityModels;
    std::map<QString, PortRules> m_rules;
    std::map<QString, FigureSource> m_sources;
};
