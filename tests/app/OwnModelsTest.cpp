#include "app/OwnModels.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
class OwnModelsTest : public ::testing::Test
{
protected:
    static OwnModel model(const QString &name)
    {
        return OwnModel::of({.name = name, .ports = 4, .pixels = 500'000}).value();
    }
    void write(const QString &name, const QByteArray &bytes)
    {
        ASSERT_TRUE(QDir().mkpath(folder));
        QFile file(folder + '/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir home;
    QString folder = home.filePath("state/processors");
};
} // namespace

TEST_F(OwnModelsTest, WhatIsKeptIsThereForEveryShow)
{
    EXPECT_TRUE(OwnModels::in(folder).models.empty());
    ASSERT_TRUE(OwnModels::keep(model("Crate/2 & \"Co\""), folder));
    ASSERT_TRUE(OwnModels::keep(model("Box"), folder));
    const OwnModels::Found found = OwnModels::in(folder);
    EXPECT_TRUE(found.faults.isEmpty());
    ASSERT_EQ(found.models.size(), 2);
    EXPECT_EQ(found.models[0], model("Box"));
    EXPECT_EQ(found.models[1].model()->model, "Crate/2 & \"Co\"");
}

TEST_F(OwnModelsTest, NoNameIsKeptTwiceAndNoneOfTheProgram)
{
    ASSERT_TRUE(OwnModels::keep(model("Box"), folder));
    EXPECT_EQ(OwnModels::keep(model("Box"), folder).error().text,
              "There is a model \"Box\" already; choose another name.");
    EXPECT_EQ(OwnModels::keep(model("MX40 Pro"), folder).error().text,
              "There is a model \"MX40 Pro\" already; choose another name.");
    EXPECT_EQ(OwnModels::in(folder).models.size(), 1);
}

TEST_F(OwnModelsTest, AFileThatHoldsNoneIsToldAndTheOthersAreThere)
{
    ASSERT_TRUE(OwnModels::keep(model("Box"), folder));
    write("broken.json", "{");
    write("large.json", QByteArray((1 << 20) + 1, ' '));
    write("notes.txt", "no model");
    const OwnModels::Found found = OwnModels::in(folder);
    EXPECT_EQ(found.models.size(), 1);
    ASSERT_EQ(found.faults.size(), 2);
    EXPECT_TRUE(found.faults[0].startsWith(folder + "/broken.json is no model of a processor: "))
        << qPrintable(found.faults[0]);
}

TEST_F(OwnModelsTest, AFolderThatCannotBeMadeIsToldOf)
{
    QFile file(home.filePath("state"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(OwnModels::keep(model("Box"), folder).error().text, "The folder " + folder + " cannot be made.");
}
