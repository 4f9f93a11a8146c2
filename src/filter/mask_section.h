// The foldable "Mask" section of the filter designer's form: the method
// pop-up, the passband and stopband edges, Rp and As, and the
// "Design to Mask" button. Edges are in the design's units.
#pragma once

#include "dsp/tolerance_mask.h"

#include <QWidget>

class GVRNumberField;
class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;

class MaskSection : public QWidget {
    Q_OBJECT
public:
    explicit MaskSection(QWidget* parent = nullptr);

    // 0 "Window: Kaiser", 1 "Equiripple".
    int method() const;
    // The mask as typed (type left 0); empty fields read as 0, which the model refuses.
    ToleranceMask typedMask() const;
    // Puts a mask (in the design's units) and its method back, and unfolds the section.
    void restore(int method, const ToleranceMask& typed);
    // Shows the second edges for a band pass (type 1).
    void setFilterType(int type);
    bool isFolded() const;
    void setFolded(bool folded);

    QComboBox* methodPopUp() const { return methodPopUp_; }
    QPushButton* designToMaskBut() const { return designToMaskBut_; }
    GVRNumberField* passbandField(int i) const { return pass_[i]; }
    GVRNumberField* stopbandField(int i) const { return stop_[i]; }
    GVRNumberField* rippleField() const { return ripple_; }
    GVRNumberField* attenuationField() const { return attenuation_; }

signals:
    void designToMaskRequested();

private:
    QToolButton* fold_ = nullptr;
    QWidget* body_ = nullptr;
    QComboBox* methodPopUp_ = nullptr;
    GVRNumberField* pass_[2] = {nullptr, nullptr};
    GVRNumberField* stop_[2] = {nullptr, nullptr};
    GVRNumberField* ripple_ = nullptr;
    GVRNumberField* attenuation_ = nullptr;
    QPushButton* designToMaskBut_ = nullptr;
};
