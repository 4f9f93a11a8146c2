// The "Word Length" chart of the filter designer: stopband attenuation
// against coefficient bits (8 to 20), the double design as a dashed line and
// the chosen width marked. It draws the arrays its window gives it.
#pragma once

#include <QWidget>

#include <vector>

class GVRViewWordLength : public QWidget {
    Q_OBJECT
public:
    explicit GVRViewWordLength(QWidget* parent = nullptr);

    // bits and attenuation (dB) of the same size; doubleDb the double design's attenuation (NaN for none);
    // chosenBits the selected width (0 for Double). Empty arrays draw an empty frame. Redraws.
    void setSweep(std::vector<double> bits, std::vector<double> attenuationDb, double doubleDb,
                  int chosenBits);

    QSize sizeHint() const override { return {480, 300}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<double> bits_;
    std::vector<double> attenuationDb_;
    double doubleDb_ = 0.0;
    int chosenBits_ = 0;
};
