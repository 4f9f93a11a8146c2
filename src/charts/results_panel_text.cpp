// Rows of the filter results panel.
#include "charts/results_panel_text.h"
#include "dsp/fir_synthesis.h"

namespace {

QString frequencyText(float value, const QString& unit)
{
    return QString::asprintf("%1.3f ", double(value)) + unit;
}

} // namespace

QVector<ResultsPanelRow> resultsPanelRows(int filterType, const QString& unit,
                                          const FilterResultValues& values, float height)
{
    const QString bandwidthCaption = QStringLiteral("3dB Bandwidth");
    const QString bandwidthValue = frequencyText(values.db3Bandwidth, unit);
    const QString rippleCaption = QStringLiteral("Passband Ripple");
    const QString rippleValue = QString::asprintf("%1.3f dB", double(values.passbandRipple));

    if (filterType == kFilterBandPass) {
        const float r = height / 5.0f;
        return {
            {95.0f, QStringLiteral("3dB Point Low"), frequencyText(values.db3Low, unit)},
            {95.0f - r, QStringLiteral("3dB Point High"), frequencyText(values.db3High, unit)},
            {95.0f - 2.0f * r, bandwidthCaption, bandwidthValue},
            {95.0f - 3.0f * r, rippleCaption, rippleValue},
        };
    }
    const float r = 0.25f * height;
    return {
        {90.0f, QStringLiteral("3dB Point"), frequencyText(values.db3Low, unit)},
        {90.0f - r, bandwidthCaption, bandwidthValue},
        {90.0f - 2.0f * r, rippleCaption, rippleValue},
    };
}
