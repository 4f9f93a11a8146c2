// Measured analysis, mask and sweep output of orvana-cli. NaN (a crossing or
// stopband that does not exist) prints as JSON null.
#include "cli/measured_output.h"

#include "dsp/window.h"
#include "filter/filter_designer_model.h"
#include "filter/mask_design.h"

#include <cmath>

namespace cli {

namespace {

void edges(JsonWriter& json, const char* key, const ResponseAnalysis& r, const double (&values)[2])
{
    json.key(key);
    json.beginArray();
    for (int i = 0; i < r.edgeCount; ++i)
        json.value(values[i]);
    json.endArray();
}

QString number(double v, int decimals)
{
    return std::isfinite(v) ? QString::number(v, 'f', decimals) : QStringLiteral("none");
}

} // namespace

void writeMeasuredJson(JsonWriter& json, const GVRFilterDesignerModel& model)
{
    const FilterMeasurement m = model.measured();
    json.beginObject();
    json.key("referenceGainDb");
    json.value(m.response.referenceGainDb);
    json.key("peakFrequency");
    json.value(m.response.peakFrequency);
    edges(json, "edges3dB", m.response, m.response.edges3dB);
    edges(json, "edges6dB", m.response, m.response.edges6dB);
    json.key("stopbandAttenuationDb");
    json.value(m.stopbandAttenuationDb);
    json.key("stopbandAttenuationQuantisedDb");
    json.value(m.stopbandAttenuationQuantisedDb);
    json.key("passbandRippleDb");
    json.value(m.response.passbandRippleDb);
    json.key("bitsNeeded"); // none for a Double design
    json.value(model.filterWidth() == 0 ? std::nullopt : std::optional(m.bitsNeeded));
    json.key("fitsWidth");
    json.value(m.fitsWidth);
    json.key("groupDelaySamples");
    json.value(m.groupDelaySamples);
    json.endObject();
}

void writeMaskJson(JsonWriter& json, const GVRFilterDesignerModel& model)
{
    const auto check = model.maskCheck();
    json.beginObject();
    json.key("method");
    json.value(model.design().designMethod == kMaskEquiripple ? "equiripple" : "kaiser");
    json.key("taps");
    json.value(static_cast<int>(model.filterLengthN()));
    if (model.design().designMethod != kMaskEquiripple) {
        json.key("beta");
        json.value(model.windowType() == kWindowKaiser ? model.betaUpsilon() : 0.0);
    }
    json.key("met");
    json.value(check && check->met);
    json.key("passbandRippleDb");
    json.value(check ? check->passbandRippleDb : NAN);
    json.key("stopbandAttenuationDb");
    json.value(check ? check->stopbandAttenuationDb : NAN);
    json.key("worstFrequency");
    json.value(check ? check->worstFrequency : NAN);
    json.endObject();
}

void writeSweepJson(JsonWriter& json, const GVRFilterDesignerModel& model)
{
    json.beginObject();
    json.key("rows");
    json.beginArray();
    for (const SweepRow& row : model.wordLengthSweep()) {
        json.beginObject();
        // The Double row has neither a width nor a need for one.
        const auto unlessDouble = [&row](int v) { return row.bits == 0 ? std::nullopt : std::optional(v); };
        json.key("bits");
        json.value(unlessDouble(row.bits));
        json.key("stopbandAttenuationDb");
        json.value(row.stopbandAttenuationDb);
        json.key("passbandRippleDb");
        json.value(row.passbandRippleDb);
        json.key("bitsNeeded");
        json.value(unlessDouble(row.bitsNeeded));
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

QString measuredText(const GVRFilterDesignerModel& model)
{
    const FilterMeasurement m = model.measured();
    const ResponseAnalysis& r = m.response;
    auto pair = [&r](const double(&v)[2]) {
        return r.edgeCount == 2 ? number(v[0], 6) + QStringLiteral(", ") + number(v[1], 6) : number(v[0], 6);
    };
    QString out = QStringLiteral("\nMeasured (normalised frequencies, 1.0 = fs/2)\n");
    out += QStringLiteral("Reference Gain:   %1 dB at %2\n")
               .arg(number(r.referenceGainDb, 4), number(r.peakFrequency, 6));
    out += QStringLiteral("-3 dB Edges:      %1\n").arg(pair(r.edges3dB));
    out += QStringLiteral("-6 dB Edges:      %1\n").arg(pair(r.edges6dB));
    out += QStringLiteral("Stopband:         %1 dB (quantised %2 dB)\n")
               .arg(number(m.stopbandAttenuationDb, 2), number(m.stopbandAttenuationQuantisedDb, 2));
    out += QStringLiteral("Passband Ripple:  %1 dB\n").arg(number(r.passbandRippleDb, 4));
    if (model.filterWidth() != 0)
        out += QStringLiteral("Bits Needed:      %1%2\n")
                   .arg(m.bitsNeeded)
                   .arg(m.fitsWidth ? QString() : QStringLiteral(" (more than the chosen width)"));
    out += QStringLiteral("Group Delay:      %1 samples\n").arg(m.groupDelaySamples);
    return out;
}

QString maskText(const GVRFilterDesignerModel& model)
{
    const auto check = model.maskCheck();
    if (!check)
        return {};
    return QStringLiteral("Mask (%1, %2 taps): %3; ripple %4 dB, stopband %5 dB, worst at %6\n")
        .arg(model.design().designMethod == kMaskEquiripple ? QStringLiteral("equiripple")
                                                            : QStringLiteral("kaiser"))
        .arg(model.filterLengthN())
        .arg(check->met ? QStringLiteral("met")
                        : QStringLiteral("missed by %1 dB").arg(check->missDb, 0, 'f', 2))
        .arg(check->passbandRippleDb, 0, 'f', 3)
        .arg(check->stopbandAttenuationDb, 0, 'f', 2)
        .arg(check->worstFrequency, 0, 'f', 4);
}

QString sweepText(const GVRFilterDesignerModel& model)
{
    QString out = QStringLiteral("  bits  stopband dB  ripple dB  bits needed\n");
    for (const SweepRow& row : model.wordLengthSweep())
        out += QStringLiteral("%1  %2  %3  %4\n")
                   .arg(row.bits == 0 ? QStringLiteral("double") : QString::number(row.bits), 6)
                   .arg(number(row.stopbandAttenuationDb, 2), 11)
                   .arg(number(row.passbandRippleDb, 4), 9)
                   .arg(row.bits == 0 ? QStringLiteral("-") : QString::number(row.bitsNeeded), 11);
    return out;
}

} // namespace cli
