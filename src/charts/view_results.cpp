// The filter results panel of the filter design window.
#include "charts/view_results.h"

#include <QPainter>

#include "archive/design_titles.h"
#include "charts/chart_painting.h"
#include "dsp/fir_synthesis.h"

GVRViewResults::GVRViewResults(QWidget* parent)
    : QWidget(parent), freqUnitsTitle_(titles::filterUnits()), textFont_(chartpaint::palatinoFont(18))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize GVRViewResults::sizeHint() const
{
    return QSize(360, 125);
}

void GVRViewResults::displayFilterDesignResults(const QVariantMap& results)
{
    if (results.size() == 6) {
        values_.db3Low = results.value(QStringLiteral("KEYFDR_3DB_LOW")).toFloat();
        values_.db3High = results.value(QStringLiteral("KEYFDR_3DB_HIGH")).toFloat();
        values_.db3Bandwidth = results.value(QStringLiteral("KEYFDR_3DB_BANDWIDTH")).toFloat();
        values_.passbandRipple = results.value(QStringLiteral("KEYFDR_PASSBAND_RIPPLE")).toFloat();
        dynamicRange_ = results.value(QStringLiteral("KEYFDR_DYNAMIC_RNG")).toFloat();
        dynamicRangeError_ = results.value(QStringLiteral("KEYFDR_DYNAMIC_RNG_ERR")).toFloat();
        validResultsFlag_ = true;
    }
    update();
}

void GVRViewResults::clearDisplay()
{
    validResultsFlag_ = false;
    update();
}

void GVRViewResults::setFilterType(int type)
{
    filterType_ = type;
    update();
}

void GVRViewResults::setFreqUnits(int units)
{
    freqUnits_ = units;
    update();
}

QVector<ResultsPanelRow> GVRViewResults::rows() const
{
    if (!validResultsFlag_)
        return {};
    const QString unit =
        freqUnits_ >= 0 && freqUnits_ < freqUnitsTitle_.size() ? freqUnitsTitle_[freqUnits_] : QString();
    return resultsPanelRows(filterType_, unit, values_, float(height()));
}

void GVRViewResults::paintEvent(QPaintEvent*)
{
    const QSizeF size = this->size();
    QPainter painter(this);
    chartpaint::beginFramedView(painter, size, chartpaint::kChartLineWidth);
    if (!validResultsFlag_)
        return;
    for (const ResultsPanelRow& row : rows()) {
        chartpaint::drawTextAt(painter, QPointF(kResultsCaptionX, row.y), row.caption, textFont_);
        chartpaint::drawTextAt(painter, QPointF(kResultsValueX, row.y), row.value, textFont_);
    }
    // A low-pass or high-pass pass has no upper 3 dB point; a later switch to
    // band pass shows it as zero until new results come.
    if (filterType_ != kFilterBandPass)
        values_.db3High = 0.0f;
}
