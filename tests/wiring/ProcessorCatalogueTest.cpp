#include "wiring/PortCapacity.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace {
const ProcessorCatalogue &catalogue()
{
    return ProcessorCatalogue::builtIn();
}

/// A file with one processor of a person's own.
QByteArray ownFile(const QByteArray &change = "", const QByteArray &to = "")
{
    QByteArray text = R"({"format": "wallwright.processors", "version": 1,
        "sources": {"mine": {"title": "Measured in the shop", "where": "shop", "grade": "A"}},
        "capacityModels": {"mine-1g": {"label": "Mine", "kind": "table", "grade": "A", "source": "mine",
            "published": [{"bits": 8, "hz": 50, "pixels": 500000}]}},
        "processors": [{"family": "Own", "model": "Box", "ports": 3, "capacityModel": "mine-1g",
            "rules": "nova-coex", "bits": [8], "grade": "A", "source": "mine", "canvas": [1920, 1080],
            "deviceCap": {"kind": "pixels", "pixels": 1400000}}]})";
    return change.isEmpty() ? text : text.replace(change, to);
}

QString errorOf(const QByteArray &json)
{
    const auto read = ProcessorCatalogue::read(json, catalogue());
    return read ? QString("none") : read.error().text;
}

/// What the catalogue answers for a cell of a model's table.
qint64 answeredFor(const ProcessorModel &model, const ProcessorModel::Figure &figure)
{
    ProcessorSettings settings;
    settings.model = model.model;
    settings.bits = figure.bits;
    settings.rate = figure.hz;
    for (const auto &[names, capacityModel] : model.cards) {
        if (capacityModel == model.capacityModel)
            settings.card = names;
    }
    const auto capacity = PortCapacity::of(settings);
    return capacity ? capacity->pixels : -1;
}
} // namespace

TEST(ProcessorCatalogue, HoldsWhatComesWithTheProgram)
{
    EXPECT_EQ(catalogue().models().size(), 77u);
    EXPECT_EQ(catalogue().capacityModels().size(), 16u);
    EXPECT_EQ(catalogue().rules().size(), 6u);
    EXPECT_EQ(catalogue().sources().size(), 64u);
    const ProcessorModel *sender = catalogue().model("MX40 Pro");
    ASSERT_TRUE(sender);
    EXPECT_EQ(sender->ports, 20);
    EXPECT_EQ(sender->deviceCap.pixels, 9'000'000);
    EXPECT_EQ(sender->deviceCap.kind, DeviceCap::Kind::PixelRate);
    EXPECT_EQ(sender->canvases, (std::vector<QSize>{QSize(4166, 2160)}));
    EXPECT_EQ(catalogue().model("Tessera M2")->canvases.size(), 5u);
    EXPECT_EQ(catalogue().model("Tessera SX40")->backupPair, BackupPair::Trunk);
    EXPECT_FALSE(catalogue().model("no such model"));
}

TEST(ProcessorCatalogue, EveryFigureHasASource)
{
    for (const auto &[id, model] : catalogue().capacityModels()) {
        const bool isNone = model.kind == CapacityModel::Kind::None;
        EXPECT_EQ(model.published.empty(), isNone) << qPrintable(id);
        EXPECT_EQ(catalogue().sources().at(model.source).grade == "N", isNone) << qPrintable(id);
    }
    for (const ProcessorModel &model : catalogue().models()) {
        EXPECT_FALSE(model.sources.isEmpty()) << qPrintable(model.model);
        for (const QString &source : model.sources)
            EXPECT_EQ(catalogue().sources().count(source), 1u) << qPrintable(source);
    }
    for (const auto &[id, rules] : catalogue().rules())
        EXPECT_FALSE(rules.sources.isEmpty()) << qPrintable(id);
    for (const auto &[key, source] : catalogue().sources())
        EXPECT_EQ(source.where.isEmpty(), source.grade == "N") << qPrintable(key);
}

TEST(ProcessorCatalogue, EveryModelHasItsRulesAndANameOfItsOwn)
{
    std::set<QString> names;
    for (const ProcessorModel &model : catalogue().models()) {
        EXPECT_EQ(catalogue().rulesOf(model).id, model.rules);
        EXPECT_TRUE(names.insert(model.model).second) << qPrintable(model.model);
        EXPECT_EQ(model.bits.empty(), model.perPort.empty()) << qPrintable(model.model);
        for (const auto &[cards, capacityModel] : model.cards)
            EXPECT_EQ(catalogue().capacityModels().count(capacityModel), 1u) << qPrintable(capacityModel);
    }
}

TEST(ProcessorCatalogue, EveryCellOfAModelIsWhatIsWorkedOut)
{
    int cells = 0;
    for (const ProcessorModel &model : catalogue().models()) {
        for (const ProcessorModel::Figure &figure : model.perPort) {
            EXPECT_EQ(answeredFor(model, figure), figure.pixels)
                << qPrintable(model.model) << " at " << figure.bits << " bit, " << figure.hz << " Hz";
            ++cells;
        }
    }
    EXPECT_EQ(cells, 990);
}

TEST(ProcessorCatalogue, EveryPrintedCellOfALinkIsWithinItsBandwidth)
{
    for (const auto &[id, model] : catalogue().capacityModels()) {
        for (const CapacityCell &cell : model.published) {
            if (model.kind != CapacityModel::Kind::Link)
                continue;
            const CapacityModel::Link &link = model.links.at(cell.bits);
            EXPECT_EQ(cell.pixels, link.payloadBps / (qint64{link.bitsPerPixel} * cell.hz)) << qPrintable(id);
        }
    }
}

TEST(ProcessorCatalogue, NothingNamesAPlaceOnAMachine)
{
    for (const auto &[key, source] : catalogue().sources())
        EXPECT_FALSE(source.where.startsWith('/') || source.where.contains("file:")) << qPrintable(key);
}

TEST(ProcessorCatalogue, APersonsModelsStandBesideThoseOfTheProgram)
{
    const auto own = ProcessorCatalogue::read(ownFile(), catalogue());
    ASSERT_TRUE(own) << qPrintable(own.error().text);
    EXPECT_EQ(own->models().size(), 78u);
    EXPECT_EQ(own->model("Box")->ports, 3);
    EXPECT_EQ(own->rulesOf(*own->model("Box")).maxPanelsPerPort, 512);

    ProcessorSettings settings;
    settings.model = "Box";
    settings.rate = 50;
    settings.own = OwnModel::of(ownFile()).value();
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 500000);
}

TEST(ProcessorCatalogue, WhatIsWrongInAFileIsNamed)
{
    EXPECT_EQ(errorOf("{"), "This is no list of processors: unterminated object.");
    EXPECT_EQ(errorOf("[]"), "This is no list of processors: no error occurred.");
    EXPECT_EQ(errorOf(ownFile("\"version\": 1", "\"version\": 2")), "This is no list of processors of version 1.");
    EXPECT_EQ(errorOf(ownFile("\"Box\"", "\"VX1000\"")),
              "processor 1: there is a \"VX1000\" already; use another name.");
    EXPECT_EQ(errorOf(ownFile("\"model\": \"Box\"", "\"model\": 7")), "processor 1: \"model\" is no text.");
    EXPECT_EQ(errorOf(ownFile("\"nova-coex\"", "\"nova\"")),
              "processor 1: \"nova\" is none of the rules; name one that is there.");
    EXPECT_EQ(errorOf(ownFile("\"source\": \"mine\", \"canvas\"", "\"source\": [\"theirs\"], \"canvas\"")),
              "processor 1: \"theirs\" is none of the sources; name one that is there.");
    EXPECT_EQ(errorOf(ownFile("\"capacityModel\": \"mine-1g\"", "\"capacityModel\": \"x\"")),
              "processor 1: \"x\" is none of the capacity models; name one that is there.");
    EXPECT_EQ(errorOf(ownFile("\"ports\": 3", "\"ports\": 0.5")),
              "processor 1: \"ports\" must be a whole number, 1 to 10000.");
    EXPECT_EQ(errorOf(ownFile("\"source\": \"mine\", \"canvas\"", "\"source\": [7], \"canvas\"")),
              "processor 1: \"source\" holds something that is no text.");
    EXPECT_EQ(errorOf(ownFile("[1920, 1080]", "1920")), "processor 1: \"canvas\" is no list.");
    EXPECT_EQ(errorOf(ownFile("{\"kind\": \"pixels\", \"pixels\": 1400000}", "1400000")),
              "processor 1: \"deviceCap\" is no object.");
    EXPECT_EQ(errorOf(ownFile("\"processors\"", "\"rules\": {\"mine\": {\"rectangle\": 1}}, \"processors\"")),
              "rules \"mine\": \"rectangle\" is neither true nor false.");
    EXPECT_EQ(errorOf(ownFile("500000", "-1")),
              "capacity model \"mine-1g\": published: \"pixels\" must be a whole number, 1 to 1000000000000.");
    EXPECT_EQ(errorOf(ownFile("[1920, 1080]", "[[1920]]")), "processor 1: \"canvas\" is no list of width and height.");
    EXPECT_EQ(errorOf(ownFile("\"kind\": \"pixels\"", "\"kind\": \"much\"")),
              "processor 1: deviceCap: \"kind\" is none of none, pixels, canvas, pixel-rate.");
    EXPECT_EQ(errorOf(ownFile("\"mine\": {\"title\": \"Measured in the shop\"", "\"mine\": {\"title\": \"\"")),
              "source \"mine\": \"title\" is missing; write a text.");
    EXPECT_EQ(errorOf(ownFile("\"mine-1g\": {", "\"none\": {")),
              "capacity model \"none\": it is there already; use another name.");
}

TEST(ProcessorCatalogue, NoFileOfAPersonBringsTheReaderDown)
{
    std::minstd_rand chance(1);
    const QByteArray whole = ownFile();
    int refused = 0;
    for (int round = 0; round < 2'000; ++round) {
        QByteArray text = whole;
        for (auto change = 1 + chance() % 3; change > 0; --change)
            text[static_cast<qsizetype>(chance() % unsigned(text.size()))] = "{}[]\":,-90.einullx"[chance() % 18];
        if (chance() % 4 == 0)
            text.truncate(static_cast<qsizetype>(chance() % unsigned(text.size())));
        const auto read = OwnModel::of(text);
        refused += read ? 0 : 1;
        if (!read) {
            ASSERT_FALSE(read.error().text.isEmpty()) << text.constData();
            continue;
        }
        for (const ProcessorModel &model : read->catalogue().models()) {
            ProcessorSettings settings;
            settings.model = model.model;
            settings.own = *read;
            (void)PortCapacity::of(settings);
        }
    }
    EXPECT_GT(refused, 1'200);
}
