// orvana-cli window: one window as the filter design computes it, with its
// properties for harmonic analysis (and the textbook values where they exist).
#include "cli/cli_options.h"
#include "cli/json_writer.h"
#include "cli/verbs.h"

#include "archive/design_titles.h"
#include "dsp/fir_synthesis.h"
#include "dsp/window.h"
#include "dsp/window_properties.h"

#include <QCommandLineParser>

#include <cmath>
#include <vector>

namespace cli {

namespace {

const QStringList& kWindowNames = titles::windowTypes();

int windowIndex(const QString& text)
{
    const QString t = text.trimmed();
    for (int i = 0; i < kWindowNames.size(); ++i)
        if (t.compare(kWindowNames[i], Qt::CaseInsensitive) == 0)
            return i;
    bool ok = false;
    const int index = t.toInt(&ok);
    return ok && index >= 0 && index < kWindowNames.size() ? index : -1;
}

struct Row {
    const char* key;
    const char* label;
    double WindowProperties::*field;
};

constexpr Row kRows[] = {
    {"coherentGain", "Coherent Gain", &WindowProperties::coherentGain},
    {"enbwBins", "ENBW (bins)", &WindowProperties::enbwBins},
    {"scallopLossDb", "Scallop Loss (dB)", &WindowProperties::scallopLossDb},
    {"mainLobe3dBBins", "3 dB Main Lobe (bins)", &WindowProperties::mainLobe3dBBins},
    {"mainLobe6dBBins", "6 dB Main Lobe (bins)", &WindowProperties::mainLobe6dBBins},
    {"highestSidelobeDb", "Highest Side Lobe (dB)", &WindowProperties::highestSidelobeDb},
};

} // namespace

int runWindow(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Print a window of the filter designer and its properties."));
    parser.addPositionalArgument(QStringLiteral("window"),
                                 QStringLiteral("0..10 or a name: ") + kWindowNames.join(", "));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption taps(QStringLiteral("taps"), QStringLiteral("Window length, odd, 25 to 255."),
                                  QStringLiteral("N"));
    const QCommandLineOption param(QStringLiteral("param"), QStringLiteral("β (Kaiser) or ϒ (Chebyshev)."),
                                   QStringLiteral("number"));
    const QCommandLineOption json = jsonOption();
    parser.addOptions({help, taps, param, json});
    if (const auto finished = parseVerbArguments(parser, args, Positionals::Allowed))
        return *finished;
    const QStringList names = parser.positionalArguments();
    const int index = names.size() == 1 ? windowIndex(names[0]) : -1;
    if (index < 0 || !parser.isSet(taps)) {
        printErr(QStringLiteral("orvana-cli window: give one window (a name or 0..10) and --taps N.\n") +
                 parser.helpText());
        return Usage;
    }
    const auto n = parseNumber(parser.value(taps));
    const auto p = parser.isSet(param) ? parseNumber(parser.value(param)) : std::optional<double>(0.0);
    if (!n || !p) {
        printErr(QStringLiteral("orvana-cli window: --taps and --param take numbers."));
        return Usage;
    }
    if (!(*n >= kDesignMinTaps && *n <= kDesignMaxTaps) || *n != std::floor(*n) ||
        std::fmod(*n, 2.0) != 1.0) {
        printErr(QStringLiteral("VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"));
        return Refused;
    }
    const bool parametric = index == kWindowKaiser || index == kWindowChebyshev;
    if (parametric && !(*p > 0.0 && *p <= (index == kWindowKaiser ? 100.0 : 20.0))) {
        printErr(index == kWindowKaiser ? QStringLiteral("VALID RANGE: 0 < β ≤ 100")
                                        : QStringLiteral("VALID RANGE: 0 < ϒ ≤ 20"));
        return Refused;
    }
    std::vector<double> w(static_cast<std::size_t>(*n));
    winfun(index, *p, w);
    const WindowProperties m = windowProperties(w);
    const auto textbook = textbookWindowProperties(index);

    if (parser.isSet(json)) {
        JsonWriter out;
        out.beginObject();
        out.key("window");
        out.value(kWindowNames[index].toStdString());
        out.key("taps");
        out.value(static_cast<int>(w.size()));
        out.key("param");
        if (parametric)
            out.value(*p);
        else
            out.null();
        out.key("coefficients");
        out.array(w);
        for (const Row& row : kRows) {
            out.key(row.key);
            out.value(m.*row.field);
        }
        out.endObject();
        printOut(out.text() + "\n");
        return Designed;
    }
    QString text = QStringLiteral("%1 window, %2 taps").arg(kWindowNames[index]).arg(w.size());
    if (parametric)
        text += QStringLiteral(", %1 = %2")
                    .arg(index == kWindowKaiser ? QStringLiteral("β") : QStringLiteral("ϒ"))
                    .arg(*p);
    text += QStringLiteral("\n\n%1  %2  %3\n")
                .arg(QStringLiteral("property"), -24)
                .arg(QStringLiteral("measured"), 10)
                .arg(QStringLiteral("textbook"), 9);
    for (const Row& row : kRows)
        text += QStringLiteral("%1  %2  %3\n")
                    .arg(QString::fromUtf8(row.label), -24)
                    .arg(m.*row.field, 10, 'f', 4)
                    .arg(textbook ? QString::number((*textbook).*row.field, 'f', 2) : QStringLiteral("-"), 9);
    text += QStringLiteral("\n   n  w[n]\n");
    for (std::size_t i = 0; i < w.size(); ++i)
        text += QStringLiteral("%1  %2\n").arg(i, 4).arg(w[i], 0, 'g', 17);
    printOut(text);
    return Designed;
}

} // namespace cli
