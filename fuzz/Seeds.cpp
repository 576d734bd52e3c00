#include "base/FileBytes.h"
#include "formats/PresetLibrary.h"
#include "formats/ProcessorList.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "fuzz/OtherArchives.h"
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
#include <QImageWriter>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

/// The bytes with each of them, one by one, as large as it can be.
QByteArrayList withAWrongByte(const QByteArray &bytes)
{
    QByteArrayList variants;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        variants.append(QByteArray(bytes).replace(i, 1, "\xff"));
    return variants;
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

/// The value with one of its parts replaced by another kind of value, each by each.
QList<QJsonValue> withAnotherPart(const QJsonValue &value)
{
    QList<QJsonValue> variants{QJsonValue::Null, true, -1.5, 7, "x", QJsonArray(), QJsonArray{0, ""}, QJsonObject()};
    const QJsonArray list = value.toArray();
    for (qsizetype i = 0; i < list.size(); ++i) {
        for (const QJsonValue &entry : withAnotherPart(list[i])) {
            QJsonArray variant = list;
            variant[i] = entry;
            variants.append(variant);
        }
    }
    const QJsonObject object = value.toObject();
    for (const QString &name : object.keys()) {
        for (const QJsonValue &entry : withAnotherPart(object[name])) {
            QJsonObject variant = object;
            variant[name] = entry;
            variants.append(variant);
        }
    }
    return variants;
}

/// What people write who take it for something else than JSON, and what has a wrong kind of value somewhere.
QByteArrayList damagedTexts()
{
    QByteArrayList texts{"[]",
                         "{'format': 1}",
                         "{\"format\": 1, // so\n}",
                         "{\"a\": 1, \"a\": 2}",
                         "{\"a\": 1,}",
                         "{\"a\": [1 2]}",
                         "{\"a\": [1, 2}",
                         "{\"a",
                         "{\"a\" 1}",
                         "{a: 1}",
                         "{\"a\": 1 \"b\": 2}",
                         "{\"a\": 01}",
                         "{\"a\": \"\\x\"}",
                         QByteArray(1100, '['),
                         QByteArray("{\"a\":").repeated(1100),
                         "{\"format\": 1, \"OutputWidth\": 0, \"layers\": []}"};
    for (const QByteArray &text : otherTexts()) {
        for (const QJsonValue &variant : withAnotherPart(QJsonDocument::fromJson(text).object())) {
            if (variant.isObject())
                texts.append(QJsonDocument(variant.toObject()).toJson(QJsonDocument::Compact));
        }
    }
    return texts;
}

QByteArray drawing(const QByteArray &content)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='9' height='7'>" +
           content + "</svg>";
}

QByteArray drawingWith(const QByteArray &embedded)
{
    return drawing("<image width='9' height='7' xlink:href='data:image/png;base64," + embedded.toBase64() + "'/>");
}

/// With each thing that makes one take long.
QByteArrayList drawings()
{
    return {drawing("<g fill='red'><path d='M0 0L9 7z'/><use href='#a'/><circle id='a' r='3'/></g>"),
            drawing("<g id='a'><g id='b'><use href='#c'/></g><use xlink:href='#b'/></g>"),
            drawing("<use href='#a'/><g id='a'><use href='#a'/></g>"),
            drawing("<image width='9' height='7' href='other.png'/>"),
            drawing(QByteArray("<g>").repeated(1100)),
            drawing("<path d='m1 1l2 3h4v2H1V2c1 1 2 2 3 1s1 2 2 2q1 1 2 0t1 1a3 2 30 0 1 2 2A3 2 30 1,0 2 2Z'/>"),
            drawing("<g transform='translate(1,2) scale(2 3) rotate(30)'><polygon points='0,0 9,7 3,1'/>"
                    "<polyline transform='matrix(1 2 3 4 5 6) skewX(9)' points='1 2 3 4' stroke='red'/></g>"),
            drawing("<g stroke='red' stroke-width='3' stroke-dasharray='2,1'><line x1='1' y1='2' x2='9' y2='3'/>"
                    "<rect width='9' height='7' rx='2' stroke-width='.5mm'/><ellipse rx='4' ry='2'/></g>"),
            drawing("<style>rect { stroke: red; stroke-width: 2; stroke-dasharray: 3 } text { font-size: 9px }</style>"
                    "<rect width='9' height='7'/><text x='1' font-size='3'>MAIN<tspan>A1</tspan></text>"),
            drawing("<defs><linearGradient id='g'><stop offset='0'/><stop offset='.5'/><stop offset='1'/>"
                    "</linearGradient></defs><rect style='fill:url(#g);stroke:blue;font-size:2' width='50%'/>"),
            "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 90 70'><rect width='90' height='9'/></svg>",
            "<?xml-stylesheet href='other.css'?>" + drawing("<rect width='9' height='7'/>"),
            "<svg xmlns='http://www.w3.org/2000/svg' width='99999' height='99999'/>",
            "\x1f\x8b\x08 compressed"};
}

/// A small picture in each format that can be written, by itself and in a drawing.
QByteArrayList pictures()
{
    QImage picture(16, 16, QImage::Format_ARGB32);
    picture.fill(0x80123456U);
    picture.setPixel(3, 2, 0xffff0000U);
    QByteArrayList files = drawings();
    files += QByteArrayList{"P5 99999 99999 255\n", "P5 2000 2000 255\n" + QByteArray(60'000, 'a')};
    for (const QByteArray &format : QImageWriter::supportedImageFormats()) {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        if (picture.save(&file, format.constData()))
            files.append({file.data(), drawingWith(file.data())});
    }
    return files + QByteArrayList{drawingWith(files.first())};
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
    sample.layers[1]->setValue("chart", "field colour=red range=narrow");
    QByteArrayList projects{*ProjectFile::encode(sample)};
    QByteArrayList libraries{*PresetLibrary::encode(sample.layers)};
    for (const QByteArray &text : texts + otherTexts()) {
        const Result<Project> project = ProjectText::decode(text, EXAMPLES, host);
        if (!project)
            continue;
        projects.append(ProjectFile::encode(*project).value_or(QByteArray()));
        libraries.append(PresetLibrary::encode(project->layers).value_or(QByteArray()));
    }
    const QByteArray copied = *KeyedArchive::write(LayerArchive::encode(sample.layers));
    const QByteArray rows = *RowPasteboard::encode({1, 2, 3, 9, 11});
    const QByteArrayList others = filesOf(FIXTURES "/archive", {"*.xml"}) + QByteArrayList{OtherArchives::list()} +
                                  OtherArchives::damaged() + withAWrongByte(rows);
    QByteArrayList copies{{}, QByteArray("stage.Orv\0damaged", 17)};
    for (const QByteArray &project : projects)
        copies.append(QByteArray("/shows/stage.Orv") + '\0' + project);
    return {{"plist", projects + others + libraries + QByteArrayList{rows}},
            {"archive", projects + others + libraries + QByteArrayList{rows}},
            {"project", projects + others + OtherArchives::projects()},
            {"presets", others + OtherArchives::walls() + libraries},
            {"json", texts + otherTexts() + damagedTexts() + QByteArrayList{ProjectText::encode(sample)}},
            {"pasteboard", others + OtherArchives::walls() + libraries + QByteArrayList{copied, rows}},
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
