// Measured panel: one rich-text label, rebuilt on each design while shown.
#include "filter/measured_panel.h"

#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "dsp/window_properties.h"
#include "filter/filter_designer_model.h"
#include "filter/mask_design.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <cmath>
#include <vector>

namespace {

QString num(double v, int decimals)
{
    return std::isfinite(v) ? QString::number(v, 'f', decimals) : QStringLiteral("—");
}

QString row(const QString& name, const QString& value, const QString& extra = {})
{
    return QStringLiteral(
               "<tr><td>%1</td><td align=right>&nbsp;%2</td><td align=right>&nbsp;&nbsp;%3</td></tr>")
        .arg(name, value, extra);
}

} // namespace

MeasuredPanel::MeasuredPanel(QWidget* parent) : QWidget(parent)
{
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    body_ = new QLabel(scroll);
    body_->setObjectName(QStringLiteral("measuredText"));
    body_->setTextFormat(Qt::RichText);
    body_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    body_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    body_->setMargin(6);
    scroll->setWidget(body_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);
}

void MeasuredPanel::clear()
{
    body_->setText(tr("Measured: no design yet."));
}

QString MeasuredPanel::text() const
{
    return body_->text();
}

void MeasuredPanel::showDesign(const GVRFilterDesignerModel& model)
{
    if (!model.validResultsFlag() || model.filterCoefficients().empty()) {
        clear();
        return;
    }
    const double scale = model.unitsType() == 0 ? 1.0 : 0.5 * model.thetaSamplingFreq();
    const QString unit = model.unitsType() == 1   ? QStringLiteral(" KHz")
                         : model.unitsType() == 2 ? QStringLiteral(" MHz")
                                                  : QString();
    const FilterMeasurement m = model.measured();
    const ResponseAnalysis& r = m.response;
    auto freq = [&](double f) {
        return std::isfinite(f) ? num(f * scale, 4) + unit : QStringLiteral("none");
    };
    auto edges = [&](const double(&e)[2]) {
        return r.edgeCount == 2 ? freq(e[0]) + QStringLiteral(", ") + freq(e[1]) : freq(e[0]);
    };

    QString html = QStringLiteral("<b>%1</b><table>").arg(tr("Measured filter"));
    html += row(tr("Reference gain"), num(r.referenceGainDb, 3) + QStringLiteral(" dB"),
                tr("at %1").arg(freq(r.peakFrequency)));
    html += row(tr("−3 dB edges"), edges(r.edges3dB));
    html += row(tr("−6 dB edges"), edges(r.edges6dB));
    html +=
        row(tr("Stopband attenuation"), num(m.stopbandAttenuationDb, 2) + QStringLiteral(" dB"),
            model.filterWidth() == 0 ? QString()
                                     : tr("quantised %1 dB").arg(num(m.stopbandAttenuationQuantisedDb, 2)));
    html += row(tr("Passband ripple"), num(r.passbandRippleDb, 4) + QStringLiteral(" dB"));
    html += row(tr("Group delay"), tr("%1 samples").arg(m.groupDelaySamples));
    if (model.filterWidth() != 0)
        html += row(tr("Bits needed"), QString::number(m.bitsNeeded));
    html += QStringLiteral("</table>");
    if (model.filterWidth() != 0 && !m.fitsWidth)
        html += QStringLiteral("<p><font color=#b00000>%1</font></p>")
                    .arg(tr("integers need %1 bits, more than the %2-bit width")
                             .arg(m.bitsNeeded)
                             .arg(widthBits(model.filterWidth())));

    if (const auto check = model.maskCheck())
        html += QStringLiteral("<p><b>%1</b></p>")
                    .arg(check->met ? tr("Mask met")
                                    : tr("Mask missed by %1 dB at %2")
                                          .arg(num(check->missDb, 1))
                                          .arg(num(check->worstFrequency * scale, 3)));

    // The window as the design computed it; an equiripple design has none.
    if (model.design().designMethod != kMaskEquiripple) {
        std::vector<double> w(static_cast<std::size_t>(model.filterLengthN()));
        winfun(model.windowType(), model.betaUpsilon(), w);
        const WindowProperties p = windowProperties(w);
        const auto book = textbookWindowProperties(model.windowType());
        auto pair = [&](double measured, double WindowProperties::*field, int decimals) {
            return row(QString(), num(measured, decimals), book ? num((*book).*field, 2) : QString());
        };
        html +=
            QStringLiteral("<b>%1</b><table><tr><td></td><td align=right>%2</td><td align=right>%3</td></tr>")
                .arg(tr("Window"), tr("measured"), book ? tr("textbook") : QString());
        const std::pair<QString, double WindowProperties::*> rows[] = {
            {tr("Coherent gain"), &WindowProperties::coherentGain},
            {tr("ENBW (bins)"), &WindowProperties::enbwBins},
            {tr("Scallop loss (dB)"), &WindowProperties::scallopLossDb},
            {tr("3 dB main lobe (bins)"), &WindowProperties::mainLobe3dBBins},
            {tr("6 dB main lobe (bins)"), &WindowProperties::mainLobe6dBBins},
            {tr("Highest side lobe (dB)"), &WindowProperties::highestSidelobeDb},
        };
        for (const auto& [name, field] : rows)
            html += pair(p.*field, field, 3)
                        .replace(QStringLiteral("<td></td>"), QStringLiteral("<td>%1</td>").arg(name));
        html += QStringLiteral("</table>");
    }
    body_->setText(html);
}
