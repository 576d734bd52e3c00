#include "wiring/OwnModel.h"

#include "ShowFixture.h"

#include <gtest/gtest.h>

using namespace ShowFixture;

namespace {
OwnModel::Description box()
{
    return {.name = "Box & <Co>", .ports = 4, .pixels = 500'000};
}

ProcessorSettings settingsOf(const OwnModel &own)
{
    ProcessorSettings settings;
    settings.name = "A";
    settings.model = own.model()->model;
    settings.own = own;
    return settings;
}
} // namespace

TEST(OwnModel, TellsWhatWasDescribed)
{
    const OwnModel own = OwnModel::of(box()).value();
    ASSERT_NE(own.model(), nullptr);
    EXPECT_EQ(own.model()->model, "Box & <Co>");
    EXPECT_EQ(own.model()->family, "My own");
    EXPECT_EQ(own.model()->ports, 4);
    EXPECT_EQ(PortCapacity::of(settingsOf(own))->pixels, 500'000);
    EXPECT_EQ(PortBounds::of(settingsOf(own), 2160)->isRectangle, false);
    EXPECT_EQ(PortBounds::of(settingsOf(own), 2160)->maxPanels, 0);
}

TEST(OwnModel, AFigureIsThatOf60HzAndBelow)
{
    ProcessorSettings settings = settingsOf(OwnModel::of(box()).value());
    settings.rate = 30;
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 500'000);
    settings.rate = 120;
    EXPECT_EQ(PortCapacity::of(settings).error().reason, NoFigure::Reason::NoSuchRate);
    settings.rate = 60;
    settings.bits = 10;
    EXPECT_EQ(PortCapacity::of(settings).error().reason, NoFigure::Reason::NoSuchDepth);
}

TEST(OwnModel, ItsRulesCount)
{
    OwnModel::Description description = box();
    description.isRectangle = true;
    description.maxPanelsPerPort = 12;
    const auto bounds = PortBounds::of(settingsOf(OwnModel::of(description).value()), 2160);
    EXPECT_TRUE(bounds->isRectangle);
    EXPECT_EQ(bounds->maxPanels, 12);
}

TEST(OwnModel, IsTheSameReadFromItsText)
{
    const OwnModel own = OwnModel::of(box()).value();
    const OwnModel again = OwnModel::of(own.text()).value();
    EXPECT_EQ(again, own);
    EXPECT_EQ(again.text(), own.text());
    EXPECT_FALSE(own == OwnModel());
    EXPECT_EQ(OwnModel().model(), nullptr);
    EXPECT_TRUE(OwnModel().text().isEmpty());
    EXPECT_EQ(&OwnModel().catalogue(), &ProcessorCatalogue::builtIn());
}

TEST(OwnModel, GoesBeforeOneOfItsNameThatTheProgramHas)
{
    OwnModel::Description description = box();
    description.name = "MX40 Pro";
    const OwnModel own = OwnModel::of(description).value();
    EXPECT_EQ(own.model()->family, "My own");
    EXPECT_EQ(PortCapacity::of(settingsOf(own))->pixels, 500'000);
}

TEST(OwnModel, WhatCannotBeIsRefused)
{
    OwnModel::Description nameless = box();
    nameless.name.clear();
    EXPECT_FALSE(OwnModel::of(nameless));
    OwnModel::Description portless = box();
    portless.ports = 0;
    EXPECT_FALSE(OwnModel::of(portless));
    OwnModel::Description empty = box();
    empty.pixels = 0;
    EXPECT_FALSE(OwnModel::of(empty));
    EXPECT_FALSE(OwnModel::of(QByteArray("{}")));
    EXPECT_FALSE(OwnModel::of(QByteArray()));
    EXPECT_FALSE(OwnModel::of(QByteArray(R"({"format": "wallwright.processors", "version": 1})")));
}

TEST(OwnModel, ItsPortsAreWired)
{
    const ProcessorSettings own = settingsOf(OwnModel::of(box()).value());
    const ShowWiring wiring = wire({own}, {wall(8, 4, 128, 128)});
    ASSERT_EQ(wiring.ports.size(), 2);
    EXPECT_EQ(wiring.ports[0].load.panels, 30); // of 16,384 px
    EXPECT_EQ(wiring.ports[1].load.panels, 2);
}
