#include "still/LWStill.h"

#include "base/NumberText.h"
#include "drawing/Raster.h"
#include "still/PictureFile.h"

#include <QVariant>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <utility>
#include <vector>

namespace {
/// The archive of a still, in the order of writing. For compatibility with saved files it differs from what
/// is read: "rectcolor2" is held and no reader takes it, and older writers left "pixelLimit" and "pattern", which no
/// writer gives.
constexpr std::array writtenFields{
    ArchiveField{"col", "col", StoredAs::Integer32},
    ArchiveField{"bgenable", "bgEnable", StoredAs::Boolean},
    ArchiveField{"boarderenable", "BoarderEnable", StoredAs::Boolean},
    ArchiveField{"panelwidth", "panelWidth", StoredAs::Integer32},
    ArchiveField{"panelheight", "panelHeight", StoredAs::Integer32},
    ArchiveField{"row", "row", StoredAs::Integer32},
    ArchiveField{"rectcolor", "rectColor", StoredAs::Colour},
    ArchiveField{"rectcolor2", "rectColor2", StoredAs::Colour},
    ArchiveField{"visible", "visible", StoredAs::Boolean},
    ArchiveField{"screenheight", "screenSizeHeight", StoredAs::Integer32},
    ArchiveField{"screenwidth", "screenSizeWidth", StoredAs::Integer32},
    ArchiveField{"xpoint", "xpoint", StoredAs::Integer32},
    ArchiveField{"ypoint", "ypoint", StoredAs::Integer32},
    ArchiveField{"xyfontsize", "XYFontSize", StoredAs::Integer32},
    ArchiveField{"xyenable", "XYFontEnable", StoredAs::Boolean},
    ArchiveField{"fontenable", "screenFontEnable", StoredAs::Boolean},
    ArchiveField{"circleenable", "CircleEnable", StoredAs::Boolean},
    ArchiveField{"screenfontsize", "screenFontSize", StoredAs::Integer32},
    ArchiveField{"circlecolor", "circleColor", StoredAs::Colour},
    ArchiveField{"xycolor", "xyColor", StoredAs::Colour},
    ArchiveField{"sfcolor", "sfColor", StoredAs::Colour},
    ArchiveField{"boardercolor", "boarderColor", StoredAs::Colour},
    ArchiveField{"label", "label", StoredAs::Text},
    ArchiveField{"boarderwidth", "boarderWidth", StoredAs::Integer32},
    ArchiveField{"circlebwidth", "circleBWidth", StoredAs::Integer32},
    ArchiveField{"imageURL", "ImageURL", StoredAs::Address},
    ArchiveField{"drawLabels", "drawLabels", StoredAs::Integer32},
    ArchiveField{"labelColor", "labelColor", StoredAs::Colour},
    ArchiveField{"labelFontSize", "labelFontSize", StoredAs::Integer32},
    ArchiveField{"drawFlowPath", "drawFlowPath", StoredAs::Integer32},
};

constexpr std::array fieldsOnlyRead{
    ArchiveField{"pixelLimit", "pixelLimit", StoredAs::Integer32},
    ArchiveField{"pattern", "pattern", StoredAs::Integer32},
};

/// With what was added since.
const std::vector<ArchiveField> &allWrittenFields()
{
    static const std::vector<ArchiveField> fields = withAdditions(writtenFields, LayerKind::Still);
    return fields;
}

/// What is written and read again, in the order of writing.
const std::vector<ArchiveField> &fieldsKept()
{
    static const std::vector<ArchiveField> fields = [] {
        std::vector<ArchiveField> kept;
        std::copy_if(allWrittenFields().begin(), allWrittenFields().end(), std::back_inserter(kept),
                     [](const ArchiveField &field) { return std::strcmp(field.key, "rectcolor2") != 0; });
        return kept;
    }();
    return fields;
}

/// What a copy takes over, beside the additions that say so; the picture is shared beside it.
constexpr std::array copiedProperties{
    "screenFontEnable",
    "BoarderEnable",
    "panelWidth",
    "panelHeight",
    "col",
    "row",
    "rectColor",
    "rectColor2",
    "visible",
    "screenSizeHeight",
    "screenSizeWidth",
    "xpoint",
    "ypoint",
    "xyColor",
    "sfColor",
    "XYFontSize",
    "XYFontEnable",
    "screenFontSize",
    "CircleEnable",
    "bgEnable",
    "circleColor",
    "boarderColor",
    "label",
    "boarderWidth",
    "circleBWidth",
    "ImageURL",
    "labelGroupRightHidden",
    "label1",
    "label2",
    "label3",
    "label4",
    "label5",
    "label6",
    "label7",
    "label8",
    "label1Hidden",
    "label2Hidden",
    "label3Hidden",
    "label4Hidden",
    "label5Hidden",
    "label6Hidden",
    "label7Hidden",
    "label8Hidden",
    "drawLabels",
    "labelColor",
    "labelFontSize",
    "drawFlowPath",
    "pixelLimit",
    "pattern",
};

void setCaptions(LWStill &still)
{
    still.setLabel1("Width");
    still.setLabel2("Height");
    still.setLabel3("Pos-H");
    still.setLabel4("Pos-V");
    still.setLabel5("H-Start");
    still.setLabel6("V-Start");
    still.setLabel7("XY Label Size");
    still.setLabel8("Label Screen Size");
    still.setLabel3Hidden(true);
    still.setLabel4Hidden(true);
    still.setLabel7Hidden(true);
    still.setLabel8Hidden(true);
    still.setLabelGroupRightHidden(true);
}
} // namespace

LWStill::LWStill(LayerHost &host) : Layer(host) {}

LWStill::~LWStill() = default;

std::shared_ptr<LWStill> LWStill::initWithimage(LayerHost &host, const QImage &image)
{
    auto still = std::make_shared<LWStill>(host);
    still->setThumbnail(image);
    still->setPanelWidth(image.width());
    still->setPanelHeight(image.height());
    still->setScreenSizeWidth(image.width());
    still->setScreenSizeHeight(image.height());
    still->setVisible(true);
    still->setBoarderWidth(1);
    setCaptions(*still);
    still->setAspectValue(image.size());
    return still;
}

std::shared_ptr<LWStill> LWStill::of(LayerHost &host, const LayerRecordPointer &record)
{
    auto still = std::make_shared<LWStill>(host);
    still->setRecord(record);
    still->m_drawn = still->wantedChart();
    still->loadThumbnail();
    return still;
}

Result<LayerRecord> LWStill::decode(const ArchiveObject &coder)
{
    LayerRecord record;
    return decodeFields(record, fieldsKept(), coder)
        .and_then([&] { return decodeFields(record, fieldsOnlyRead, coder); })
        .map([&] { return std::move(record); });
}

Result<std::shared_ptr<LWStill>> LWStill::initWithCoder(LayerHost &host, const ArchiveObject &coder)
{
    return decode(coder).map(
        [&](const LayerRecord &record) { return of(host, std::make_shared<LayerRecord>(record)); });
}

QImage LWStill::thumbnail() const
{
    if (m_pictureWaits) {
        m_pictureWaits = false;
        m_loaded = values().chart ? PictureFile::Loaded{drawChart(), {}} : PictureFile::load(ImageURL().toLocalFile());
    }
    return m_loaded.picture ? *m_loaded.picture : QImage();
}

LayerLook LWStill::shownLook() const
{
    if (m_pictureWaits)
        return {record(), {}};
    return {nullptr, {m_loaded.picture ? m_loaded.picture->cacheKey() : 0}}; // whatever else is edited
}

void LWStill::setThumbnail(const QImage &picture)
{
    m_pictureWaits = false;
    m_loaded = {std::make_shared<const QImage>(picture.convertToFormat(Raster::format)), {}};
}

void LWStill::loadThumbnail()
{
    m_loaded = {};
    m_pictureWaits = true;
}

void LWStill::takePicture(const PictureFile::Loaded &loaded)
{
    m_pictureWaits = false;
    m_loaded = loaded;
}

void LWStill::releasePicture()
{
    const bool isOfFile = !ImageURL().isNil();
    if (values().chart || (isOfFile && PictureFile::isRoomScarce(m_loaded))) // else it stays: its file may go
        loadThumbnail();
}

std::optional<Result<ChartText>> LWStill::chart() const
{
    if (!values().chart)
        return std::nullopt;
    Result<ChartText> parsed = ChartText::parse(*values().chart);
    if (parsed && !takesChart(*parsed->chart))
        return fail(QString("the chart \"%1\" is none for a layer").arg(QString(parsed->chart->name)));
    if (parsed && !Raster::canHold(panelWidth(), panelHeight()))
        return fail(QString("no chart can have %1 px").arg(NumberText::size(panelWidth(), panelHeight())));
    return parsed;
}

auto LWStill::wantedChart() const -> std::optional<DrawnChart>
{
    if (!values().chart)
        return std::nullopt;
    return DrawnChart{*values().chart, {panelWidth(), panelHeight()}};
}

void LWStill::followChart()
{
    if (std::exchange(m_drawn, wantedChart()) != m_drawn)
        loadThumbnail();
}

/// Null where there is no such chart, no such raster, or no memory for it.
std::shared_ptr<const QImage> LWStill::drawChart() const
{
    const Result<ChartText> chosen = m_drawn ? ChartText::parse(m_drawn->text) : fail({});
    const QSize size = m_drawn ? m_drawn->size : QSize();
    if (!chosen || !takesChart(*chosen->chart) || !Raster::canHold(size.width(), size.height()))
        return nullptr;
    QImage picture = chosen->chart->picture(chosen->shape(size), 0);
    return std::make_shared<const QImage>(std::move(picture).convertToFormat(Raster::format));
}

bool LWStill::isPictureMissing() const
{
    if (values().chart || ImageURL().isNil())
        return false;
    if (m_pictureWaits)
        return !PictureFile::isPicture(ImageURL().toLocalFile());
    return !m_loaded.picture || m_loaded.picture->isNull();
}

std::optional<QString> LWStill::pictureObstacle() const
{
    return m_loaded.obstacle ? m_loaded.obstacle : PictureFile::obstacle(ImageURL());
}

void LWStill::onImageClick(qint64, qint64) {}

LayerPointer LWStill::copyWithZone() const
{
    auto copy = std::make_shared<LWStill>(host());
    copy->takeOver(*this, copiedProperties);
    copy->takeOver(*this, LayerValues::copiedAdditions(LayerKind::Still));
    copy->m_pictureWaits = m_pictureWaits;
    copy->m_loaded = m_loaded;
    copy->m_drawn = m_drawn;
    return copy;
}

QSet<QString> LWStill::archiveKeys()
{
    return keysOf(allWrittenFields()) + keysOf(fieldsOnlyRead);
}

void LWStill::encodeWithCoder(ArchiveObject &coder) const
{
    encodeFields(values(), allWrittenFields(), coder);
}

std::span<const ArchiveField> LWStill::keptFields() const
{
    return fieldsKept();
}
