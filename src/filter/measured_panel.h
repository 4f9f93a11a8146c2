// The Measured panel of the filter designer, a tab beside the results panel:
// the measured edges, stopband, ripple, bits and delay of the design, its
// window's properties beside the textbook values, and the mask verdict.
#pragma once

#include <QWidget>

class GVRFilterDesignerModel;
class QLabel;

class MeasuredPanel : public QWidget {
    Q_OBJECT
public:
    explicit MeasuredPanel(QWidget* parent = nullptr);

    // Measures the model's current design (units 0 "Norm", else the frequencies are scaled by fs/2)
    // and shows it; without valid results the panel is emptied.
    void showDesign(const GVRFilterDesignerModel& model);
    void clear();
    // The text shown, for tests and the self-test pictures.
    QString text() const;

private:
    QLabel* body_ = nullptr;
};
