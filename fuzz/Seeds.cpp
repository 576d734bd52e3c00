#include "base/FileBytes.h"
#include "formats/PresetLibrary.h"
#include "formats/ProcessorList.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "fuzz/Targets.h"
#include "layer/CableRunArchive.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "show/RowPasteboard.h"
#include "still/LWStill.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QImageWriter>

#include <utility>
#include <vector>

namespace {
constexpr qint64 mostBytes = 64 << 10;

QByteArrayList filesOf(const QString &folder, const QStringList &patterns)
{
    QByteArrayList files;
    for (const QFileInfo &file : QDir(folder).entryInfoList(patterns, QDir::Files)) {
        if (const Result<QByteArray> bytes = FileBytes::read(file.filePath(), mostBytes))
            files.append(*bytes);
    }
    return files;
}

QByteArray uid(qsizetype index)
{
    return "<dict><key>CF$UID</key><integer>" + QByteArray::number(index) + "</integer></dict>";
}

QByteArray classTable(const QByteArray &name)
{
    return "<dict><key>$classname</key><string>" + name + "</string><key>$classes</key><array><string>" + name +
           "</string></array></dict>";
}

QByteArray colour(int space, const QByteArray &key, const QByteArray &components)
{
    return "<key>NSColorSpace</key><integer>" + QByteArray::number(space) + "</integer><key>" + key + "</key><data>" +
           components.toBase64() + "</data>";
}

/// An archive in XML whose root is a list of records as other writers have them, each with the class behind it.
QByteArray otherRecords()
{
    const std::vector<std::pair<QByteArray, QByteArray>> records{
        {colour(1, "NSRGB", "0.5 0.25 1 0.5"), "NSColor"},
        {colour(2, "NSRGB", QByteArray("0.5 0.25 1\0", 11)), "NSColor"},
        {colour(3, "NSWhite", "0.25"), "NSColor"},
        {colour(4, "NSWhite", "0.25 0.5"), "NSColor"},
        {colour(5, "NSCMYK", "0 0.5 1 0.5 0.75"), "NSColor"},
        {"<key>NSColorSpace</key><integer>6</integer><key>NSColorName</key>" + uid(0), "NSColor"},
        {"<key>NS.data</key><data>aGVsbG8=</data>", "NSMutableData"},
        {"<key>NS.string</key><string>stage</string>", "NSString"},
        {"<key>NS.relative</key><string>a.png</string><key>NS.base</key>" + uid(0), "NSURL"},
        {"<key>NSRangeCount</key><integer>2</integer><key>NSRangeData</key><data>AQMFAg==</data>", "NSIndexSet"},
        {"<key>NSRangeCount</key><integer>1</integer><key>NSLocation</key><integer>3</integer><key>NSLength</key>"
         "<integer>4</integer>",
         "NSMutableIndexSet"},
        {"<key>label</key><string>STAGE</string>", "LWScreen"},
    };
    QByteArray references;
    QByteArray table;
    for (qsizetype i = 0; i < std::ssize(records); ++i) {
        const auto &[keys, name] = records[static_cast<std::size_t>(i)];
        references += uid(3 + 2 * i);
        table += "<dict>" + keys + "<key>$class</key>" + uid(4 + 2 * i) + "</dict>" + classTable(name);
    }
    return "<plist version=\"1.0\"><dict><key>$archiver</key><string>NSKeyedArchiver</string><key>$version</key>"
           "<integer>100000</integer><key>$top</key><dict><key>root</key>" +
           uid(1) + "</dict><key>$objects</key><array><string>$null</string><dict><key>NS.objects</key><array>" +
           references + "</array><key>$class</key>" + uid(2) + "</dict>" + classTable("NSArray") + table +
           "</array></dict></plist>";
}

/// What no example uses, and what another version may have written.
QByteArrayList otherTexts()
{
    return {
        R"({"format": 2, "processors": [{"name": "A", "model": "MX40 Pro", "rate": 59.94, "streams": 2}], "layers": [
            {"class": "LWScreen", "col": 2, "row": 2, "processor": "A", "firstPort": 3, "goesOn": true, "split": "hand",
             "limitFromProcessor": true, "runs": [{"processor": "A", "port": 1, "piece": 1, "cells": ["0,0", "0,1"]}]}]})",
        R"({"format": 4, "crew": {"b": 1.0, "a": [1e3, null]}, "voltage": 230, "phases": 1, "layers": [
            {"class": "LWScreen", "bend": [-0.0, {}], "row": 2, "col": 3, "rectColor": [0.5, 0.25, 1, 0.5],
             "rectColor2": "#12345678", "hiddenBoxes": ["0,1"], "visible": false},
            {"class": "LWStill", "ImageURL": {"relative": "a.png", "bases": ["file:///b/"]}, "a\u0041": "x"}]})"};
}

/// A small picture in each format that can be written.
QByteArrayList pictures()
{
    QImage picture(7, 5, QImage::Format_ARGB32);
    picture.fill(0x80123456U);
    picture.setPixel(3, 2, 0xffff0000U);
    QByteArrayList files{
        "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='7'><g fill='red'><path d='M0 0L9 7z'/>"
        "<use href='#a'/><circle id='a' r='3'/></g></svg>"};
    for (const QByteArray &format : QImageWriter::supportedImageFormats()) {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        if (picture.save(&file, format.constData()))
            files.append(file.data());
    }
    return files;
}

QByteArrayList sums()
{
    return {"3840/2", "6*128", "(7+5)*64", "-3.5", "((((1))))", "1/0", " 12 - 4 ", "1e9", "2**3", "7)", ".", "٣"};
}

QByteArrayList packed()
{
    QByteArray mixed("\1");
    for (int i = 0; i < 400; ++i)
        mixed.append(i % 50 < 20 ? 'a' : static_cast<char>(i * 7));
    return {QByteArray("\1"), "\1aaa", "\2abababab", QByteArray(200, 'z'), mixed};
}
} // namespace

namespace Fuzz {

QMap<QString, QByteArrayList> seeds()
{
    TestHost host;
    const QByteArrayList texts = filesOf(EXAMPLES, {"*.json"});
    Project sample = sampleProject(host);
    sample.supply = Supply::of(208, 3);
    QByteArrayList projects{*ProjectFile::encode(sample)};
    for (const QByteArray &text : texts + otherTexts()) {
        if (const Result<Project> project = ProjectText::decode(text, EXAMPLES, host))
            projects.append(ProjectFile::encode(*project).value_or(QByteArray()));
    }
    const QByteArray library = *PresetLibrary::encode(sample.layers);
    const QByteArray rows = *RowPasteboard::encode({1, 2, 3, 9, 11});
    const QByteArrayList others = filesOf(FIXTURES "/archive", {"*.xml"}) + QByteArrayList{otherRecords()};
    QByteArrayList copies;
    for (const QByteArray &project : projects)
        copies.append(QByteArray("/shows/stage.Orv") + '\0' + project);
    return {{"plist", projects + others + QByteArrayList{library, rows}},
            {"archive", projects + others + QByteArrayList{library, rows}},
            {"project", projects + others},
            {"presets", others + QByteArrayList{library}},
            {"json", texts + otherTexts() + QByteArrayList{ProjectText::encode(sample)}},
            {"pasteboard", others + QByteArrayList{library, rows}},
            {"picture", pictures()},
            {"recovery", copies},
            {"sum", sums()},
            {"packbits", packed()}};
}

QByteArrayList words()
{
    QByteArrayList words{"bplist00",       "<plist>",    "<dict>",     "<array>",      "<key>",       "<integer>",
                         "<string>",       "<data>",     "<real>",     "<true/>",      "CF$UID",      "$archiver",
                         "$version",       "$top",       "$objects",   "$null",        "$class",      "$classname",
                         "$classes",       "root",       "wallwright", "voltage",      "phases",      "NSKeyedArchiver",
                         "NS.objects",     "NS.string",  "NS.data",    "NS.base",      "NS.relative", "NSRangeCount",
                         "NSRangeData",    "NSLocation", "NSLength",   "NSColorSpace", "NSRGB",       "NSWhite",
                         "NSCMYK",         "LWScreen",   "LWStill",    "LWCableRun",   "LWProcessor", "processors",
                         "NSMutableArray", "NSURL",      "NSIndexSet"};
    const QStringList listed = CableRunArchive::keys() + ProcessorList::keys();
    for (const QString &key : LWScreen::archiveKeys() + LWStill::archiveKeys() + QSet(listed.begin(), listed.end()))
        words.append(key.toUtf8());
    return words;
}

} // namespace Fuzz
