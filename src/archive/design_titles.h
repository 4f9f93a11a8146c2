// The titles of the designers' numbered choices (windows, filter types,
// coefficient widths, frequency units), written once for the windows, the
// inspectors, the charts and the command line. A design file stores the
// index; the position in each list is that index.
#pragma once

#include <QStringList>

namespace titles {

// By window index (dsp/window.h): "Rectangular" .. "Chebyshev".
const QStringList& windowTypes();
// By filter type index (dsp/fir_synthesis.h): "Low Pass", "Band Pass", "High Pass".
const QStringList& filterTypes();
// By coefficient width index (dsp/quantisation.h): "Double", "20-bit" .. "8-bit".
const QStringList& bitWidths();
// The filter designer's units by index: "Norm", "KHz", "MHz".
const QStringList& filterUnits();
// The signal designer's frequency units by index: "MHz", "KHz".
const QStringList& signalFreqUnits();

} // namespace titles
