// The formula panel of the signal design window.
#include "charts/view_func_signal_design.h"

#include <QPainter>

#include "charts/chart_painting.h"
#include "charts/formula_table.h"

GVRViewFuncSignalDesign::GVRViewFuncSignalDesign(QWidget* parent)
    : QWidget(parent), textFont_(chartpaint::palatinoFont(20))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (int i = 0; i < kFormulaCount; ++i)
        functionDefinitions_.append(formulaLines(i));
}

QSize GVRViewFuncSignalDesign::sizeHint() const
{
    return QSize(560, 85);
}

void GVRViewFuncSignalDesign::newFunctionWithIndex(int index)
{
    functionIndex_ = index;
    update();
}

QStringList GVRViewFuncSignalDesign::shownLines() const
{
    // The window never sends an index outside the table; show nothing if one comes.
    if (functionIndex_ < 0 || functionIndex_ >= functionDefinitions_.size())
        return {};
    return functionDefinitions_[functionIndex_];
}

void GVRViewFuncSignalDesign::paintEvent(QPaintEvent*)
{
    const QSizeF size = this->size();
    QPainter painter(this);
    chartpaint::beginFramedView(painter, size, chartpaint::kChartLineWidth);
    const QStringList lines = shownLines();
    for (int j = 0; j < lines.size() && j < 3; ++j)
        chartpaint::drawTextAt(painter, QPointF(20.0, 55.0 - 25.0 * j), lines[j], textFont_);
}
