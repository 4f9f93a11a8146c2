// The colours of the chart and panel views (RGBA, components 0 to 1).
#pragma once

#include <QColor>

namespace chartcolors {

inline QColor background()
{
    return QColor::fromRgbF(1.0f, 1.0f, 1.0f, 1.0f);
}
inline QColor outline()
{
    return QColor::fromRgbF(0.0f, 0.0f, 0.0f, 1.0f);
}
inline QColor grid()
{
    return QColor::fromRgbF(0.4f, 0.4f, 0.4f, 1.0f);
}
// Filter magnitude curve and both time charts.
inline QColor dBMagGraph()
{
    return QColor::fromRgbF(0.239f, 0.357f, 0.675f, 1.0f);
}
inline QColor timeGraph()
{
    return dBMagGraph();
}
// Filter phase curve and both spectrum charts.
inline QColor phaseGraph()
{
    return QColor::fromRgbF(0.239f, 0.675f, 0.357f, 1.0f);
}
inline QColor magSpectrum()
{
    return phaseGraph();
}
// Block diagram: the filter box and the rate-changer boxes.
inline QColor filter()
{
    return QColor::fromRgbF(0.82f, 0.936f, 0.998f, 1.0f);
}
inline QColor multi()
{
    return QColor::fromRgbF(0.882f, 1.0f, 0.878f, 1.0f);
}
// The frame of the block whose output the project charts show.
inline QColor stageHighlight()
{
    return QColor::fromRgbF(0.9f, 0.45f, 0.0f, 1.0f);
}

} // namespace chartcolors
