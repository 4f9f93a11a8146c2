// Mask section: a fold button over a small grid of fields.
#include "filter/mask_section.h"

#include "widgets/number_field.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

MaskSection::MaskSection(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("maskSection"));
    fold_ = new QToolButton(this);
    fold_->setObjectName(QStringLiteral("maskFoldBut"));
    fold_->setText(tr("Mask"));
    fold_->setCheckable(true);
    fold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    fold_->setAutoRaise(true);
    body_ = new QWidget(this);
    auto* grid = new QGridLayout(body_);
    grid->setContentsMargins(12, 0, 0, 0);
    methodPopUp_ = new QComboBox(body_);
    methodPopUp_->setObjectName(QStringLiteral("maskMethodPopUp"));
    methodPopUp_->addItems({tr("Window: Kaiser"), tr("Equiripple")});
    auto field = [this](const char* name) {
        auto* f = new GVRNumberField(body_);
        f->setObjectName(QLatin1String(name));
        return f;
    };
    pass_[0] = field("maskPassbandField");
    pass_[1] = field("maskPassband2Field");
    stop_[0] = field("maskStopbandField");
    stop_[1] = field("maskStopband2Field");
    ripple_ = field("maskRippleField");
    attenuation_ = field("maskAttenuationField");
    designToMaskBut_ = new QPushButton(tr("Design to Mask"), body_);
    designToMaskBut_->setObjectName(QStringLiteral("designToMaskBut"));
    grid->addWidget(new QLabel(tr("Method:"), body_), 0, 0);
    grid->addWidget(methodPopUp_, 0, 1, 1, 2);
    grid->addWidget(new QLabel(tr("fpass:"), body_), 1, 0);
    grid->addWidget(pass_[0], 1, 1);
    grid->addWidget(pass_[1], 1, 2);
    grid->addWidget(new QLabel(tr("fstop:"), body_), 2, 0);
    grid->addWidget(stop_[0], 2, 1);
    grid->addWidget(stop_[1], 2, 2);
    grid->addWidget(new QLabel(tr("Rp (dB):"), body_), 3, 0);
    grid->addWidget(ripple_, 3, 1);
    grid->addWidget(new QLabel(tr("As (dB):"), body_), 4, 0);
    grid->addWidget(attenuation_, 4, 1);
    grid->addWidget(designToMaskBut_, 5, 0, 1, 3);
    pass_[0]->setToolTip(tr("Passband edge; for a band pass the lower one, the upper one beside it"));
    stop_[0]->setToolTip(tr("Stopband edge; for a band pass the lower one, the upper one beside it"));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fold_);
    column->addWidget(body_);
    connect(fold_, &QToolButton::toggled, this, [this](bool open) { setFolded(!open); });
    connect(designToMaskBut_, &QPushButton::clicked, this, &MaskSection::designToMaskRequested);
    setFolded(true);
    setFilterType(0);
}

int MaskSection::method() const
{
    return methodPopUp_->currentIndex();
}

ToleranceMask MaskSection::typedMask() const
{
    ToleranceMask m;
    m.passband[0] = pass_[0]->doubleValue();
    m.passband[1] = pass_[1]->doubleValue();
    m.stopband[0] = stop_[0]->doubleValue();
    m.stopband[1] = stop_[1]->doubleValue();
    m.rippleDb = ripple_->doubleValue();
    m.attenuationDb = attenuation_->doubleValue();
    return m;
}

void MaskSection::restore(int method, const ToleranceMask& typed)
{
    methodPopUp_->setCurrentIndex(method == 1 ? 1 : 0);
    pass_[0]->setDoubleValue(typed.passband[0]);
    pass_[1]->setDoubleValue(typed.passband[1]);
    stop_[0]->setDoubleValue(typed.stopband[0]);
    stop_[1]->setDoubleValue(typed.stopband[1]);
    ripple_->setDoubleValue(typed.rippleDb);
    attenuation_->setDoubleValue(typed.attenuationDb);
    setFolded(false);
}

void MaskSection::setFilterType(int type)
{
    pass_[1]->setVisible(type == 1);
    stop_[1]->setVisible(type == 1);
}

bool MaskSection::isFolded() const
{
    return body_->isHidden();
}

void MaskSection::setFolded(bool folded)
{
    body_->setVisible(!folded);
    fold_->setArrowType(folded ? Qt::RightArrow : Qt::DownArrow);
    const QSignalBlocker blocker(fold_);
    fold_->setChecked(!folded);
}
