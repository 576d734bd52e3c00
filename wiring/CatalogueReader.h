#pragma once

#include "wiring/JsonFields.h"
#include "wiring/ProcessorCatalogue.h"

#include <functional>

/// Reads one file of processor models into a catalogue; see ProcessorCatalogue::read().
class CatalogueReader
{
public:
    explicit CatalogueReader(const ProcessorCatalogue &base) : m_catalogue(base) {}

    [[nodiscard]] Result<ProcessorCatalogue> read(const QByteArray &json);

private:
    using ReadEntry = std::function<void(JsonFields &fields, const QString &id)>;

    void readEach(const QJsonObject &entries, const QString &what, const ReadEntry &read);
    void readSource(JsonFields &fields, const QString &key);
    void readCapacityModel(JsonFields &fields, const QString &id);
    void readRules(JsonFields &fields, const QString &id);
    void readProcessor(JsonFields &fields);
    void readCards(JsonFields &fields, ProcessorModel &model);
    void readShape(JsonFields &fields, ProcessorModel &model);
    void readFigures(JsonFields &fields, ProcessorModel &model);
    template <typename Entries>
    void requireKnown(JsonFields &fields, const Entries &entries, const QString &what, const QString &id);
    void keepFirst(const std::optional<Error> &error);

    ProcessorCatalogue m_catalogue;
    std::optional<Error> m_error;
};
