// The signal designer window: form, captions, unit conversions, charts and file commands.
#include "signal/signal_design_window.h"

#include <cmath>

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QVBoxLayout>

#include "archive/design_titles.h"
#include "charts/view_freq_signal_design.h"
#include "charts/view_func_signal_design.h"
#include "charts/view_time_signal_design.h"
#include "widgets/design_file_commands.h"
#include "widgets/design_file_kind.h"
#include "widgets/number_field.h"
#include "library/design_library.h"
#include "widgets/window_parts.h"
#include "signal/signal_keys.h"

namespace {

constexpr int kZoomMin = 0;
constexpr int kZoomMax = 8;
constexpr int kZoomStart = 4; // "x16"
constexpr int kFunctionMax = 10;
constexpr int kToKilo = 1; // KHz, mV
constexpr double kUnitFactor = 1000.0;

QStringList splitTitles(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(','));
}

// Parameter symbols by slot, each list by function index.
const std::array<QStringList, GVRWinSignalDesign::kParms>& parmTitles()
{
    // clang-format off
    static const std::array<QStringList, GVRWinSignalDesign::kParms> titles{
        splitTitles("A,A₁,A,A,A₁,A,σ,A₁,A,β,β"),
        splitTitles("fₐ,fₐ₁,fₐ,fₐ,fₐ₁,fₐ,μ,fₐ₁,τ,σ,σ"),
        splitTitles("ϕ,A₂,ϕ,ϕ,A₂,ϕ, ,A₂,σ,μ,μ"),
        splitTitles("σ,fₐ₂,M,σ,fₐ₂,M, ,fₐ₂,μ, , "),
        splitTitles("μ,σ,σ,μ,σ,σ, ,σ, , , "),
        splitTitles(" ,μ,μ, ,μ,μ, ,μ, , , "),
    };
    // clang-format on
    return titles;
}

// Per function, one letter per slot: the slot's tool tip (A amplitude,
// R rectangle, S σ, U mean, F frequency, P phase, M maximum, T time, B β)
// and its unit caption (V volts, F frequency, T time, R radians).
struct FunctionCodes {
    const char* tips;
    const char* units;
};
constexpr FunctionCodes kCodes[GVRWinSignalDesign::kFunctions] = {
    {"AFPSU ", "VFR V "}, // 0 cosine
    {"AFAFSU", "VFVF V"}, // 1 two cosines
    {"AFPMSU", "VFR  V"}, // 2 sum of cosines
    {"AFPSU ", "VFR V "}, // 3 sine
    {"AFAFSU", "VFVF V"}, // 4 two sines
    {"AFPMSU", "VFR  V"}, // 5 sum of sines
    {"SU    ", " V    "}, // 6 noise
    {"AFAFSU", "VFVF V"}, // 7 mixer
    {"RTSU  ", "VT V  "}, // 8 rectangle
    {"BSU   ", "  V   "}, // 9 sinc
    {"BSU   ", "  V   "}, // 10 sinc squared
};

QString toolTipOf(char code)
{
    switch (code) {
    case 'A':
        return QObject::tr("Amplitude of sinusoid");
    case 'R':
        return QObject::tr("Amplitude of rectangle");
    case 'S':
        return QObject::tr("Standard of Deviation of the Additive Gaussian Noise (AGN=0 when σ=0)");
    case 'U':
        return QObject::tr("Mean of the Additive Gaussian Noise");
    case 'F':
        return QObject::tr("Analog Frequency of sinusoid");
    case 'P':
        return QObject::tr("Phase offset of sinusoid");
    case 'M':
        return QObject::tr("Maximum number of distinct sinusoids");
    case 'T':
        return QObject::tr("Time at which the amplitude transition occurs");
    case 'B':
        return QObject::tr("β=1 for a normalized Sinc function");
    default:
        return {};
    }
}

// Slots holding frequencies (fₐ, fₐ₁, fₐ₂) and voltages (amplitudes and the
// noise mean), which the unit lists rescale; σ and τ are never rescaled.
QList<int> frequencySlots(int function)
{
    switch (function) {
    case 6:
    case 8:
    case 9:
    case 10:
        return {};
    case 1:
    case 4:
    case 7:
        return {1, 3};
    default:
        return {1};
    }
}

QList<int> voltageSlots(int function)
{
    switch (function) {
    case 0:
    case 3:
        return {0, 4};
    case 1:
    case 4:
    case 7:
        return {0, 2, 5};
    case 2:
    case 5:
        return {0, 5};
    case 6:
        return {1};
    case 8:
        return {0, 3};
    case 9:
    case 10:
        return {2};
    default:
        return {};
    }
}

// The zoom stepper shows the magnification caption in place of its number.
class ZoomSpinBox : public QSpinBox {
public:
    using QSpinBox::QSpinBox;

protected:
    QString textFromValue(int value) const override
    {
        return GVRWinSignalDesign::zoomLevelsTitle().value(value);
    }
    int valueFromText(const QString& text) const override
    {
        const int index = GVRWinSignalDesign::zoomLevelsTitle().indexOf(text.trimmed());
        return index >= 0 ? index : value();
    }
    QValidator::State validate(QString& text, int&) const override
    {
        const QString typed = text.trimmed();
        if (GVRWinSignalDesign::zoomLevelsTitle().contains(typed))
            return QValidator::Acceptable;
        for (const QString& title : GVRWinSignalDesign::zoomLevelsTitle())
            if (title.startsWith(typed))
                return QValidator::Intermediate;
        return QValidator::Invalid;
    }
};

QSpinBox* makeStepper(QSpinBox* box, int maximum, const char* name)
{
    box->setObjectName(QLatin1String(name));
    box->setRange(0, maximum);
    box->setSingleStep(1);
    box->setWrapping(true);
    box->setAlignment(Qt::AlignRight);
    // A typed value counts once confirmed, not at every keystroke.
    box->setKeyboardTracking(false);
    return box;
}

// Selects `value` when it names an item of the list; true when it did.
bool selectIndex(QComboBox* popUp, const QVariant& value)
{
    bool ok = false;
    const double index = value.toDouble(&ok);
    if (!ok || !(index >= 0 && index < popUp->count()) || index != std::floor(index))
        return false;
    popUp->setCurrentIndex(int(index));
    return true;
}

} // namespace

const QStringList& GVRWinSignalDesign::freqUnitsTitle()
{
    return titles::signalFreqUnits();
}

const QStringList& GVRWinSignalDesign::voltUnitsTitle()
{
    static const QStringList titles = splitTitles("V,mV");
    return titles;
}

const QStringList& GVRWinSignalDesign::timeUnitsTitle()
{
    static const QStringList titles = splitTitles("μS,mS");
    return titles;
}

const QStringList& GVRWinSignalDesign::zoomLevelsTitle()
{
    static const QStringList titles = splitTitles("x1,x2,x4,x8,x16,x32,x64,x128,x256");
    return titles;
}

QString GVRWinSignalDesign::parmTitle(int slot, int function)
{
    if (slot < 0 || slot >= kParms)
        return {};
    return parmTitles()[std::size_t(slot)].value(function);
}

GVRWinSignalDesign::GVRWinSignalDesign(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), signalDesignerModel_(library)
{
    setObjectName(QStringLiteral("GVRWinSignalDesign"));
    signalDesignerModel_.setWinSignalDesign(this);

    buildControls();

    DesignFileHooks hooks;
    hooks.bringToFront = [this] { showGVRWinSignalDesign(); };
    hooks.clearForNew = [this] {
        clearSignalDesignParameters();
        noteField_->clear();
        initPopUpsWithMandatoryFlag(true);
        plotFreqWithArray({});
        plotTimeWithArray({});
        // The model forgets its design too: a save now has nothing to write.
        signalDesignerModel_.clearDesign();
    };
    hooks.openDesign = [this](const QString& name) {
        return signalDesignerModel_.openSignalDesignWithFileName(name);
    };
    hooks.saveDesign = [this](const QString& name) {
        return signalDesignerModel_.saveSignalDesignWithFileName(name);
    };
    hooks.redesign = [this] { pressDesignSignalBut(); };
    hooks.nothingToSave = [this] {
        return signalDesignerModel_.validResultsFlag()
                   ? QString()
                   : tr("There is no signal design to save: design a signal first.");
    };
    hooks.lastFileError = [this] { return signalDesignerModel_.lastFileError(); };
    hooks.showNote = [this](const QString& text) { displayNoteField(text, 0.0, false); };
    DesignLibrary* lib = &library;
    fileCommands_ = new DesignFileCommands(
        this, DesignFileKind::signal([lib] { return lib->signalFolder(); }), std::move(hooks), this);

    initPopUpsWithMandatoryFlag(false);
    initSteppers();
    setToolTips();
    connectControls();
    createFileActions();
}

GVRWinSignalDesign::~GVRWinSignalDesign()
{
    signalDesignerModel_.setWinSignalDesign(nullptr);
}

std::optional<QString> GVRWinSignalDesign::signalFilename() const
{
    return fileCommands_->currentName();
}

void GVRWinSignalDesign::buildControls()
{
    viewFuncSignalDesign_ = new GVRViewFuncSignalDesign(this);
    viewFuncSignalDesign_->setObjectName(QStringLiteral("viewFuncSignalDesign"));
    viewFuncSignalDesign_->setMinimumSize(320, 60);
    viewTimeSignalDesign_ = new GVRViewTimeSignalDesign(this);
    viewTimeSignalDesign_->setObjectName(QStringLiteral("viewTimeSignalDesign"));
    viewTimeSignalDesign_->setTimeSource(this);
    viewTimeSignalDesign_->setMinimumSize(320, 130);
    viewFreqSignalDesign_ = new GVRViewFreqSignalDesign(this);
    viewFreqSignalDesign_->setObjectName(QStringLiteral("viewFreqSignalDesign"));
    viewFreqSignalDesign_->setFreqSource(this);
    viewFreqSignalDesign_->setMinimumSize(320, 130);

    auto* charts = new QSplitter(Qt::Vertical, this);
    charts->setObjectName(QStringLiteral("signalCharts"));
    charts->addWidget(viewFuncSignalDesign_);
    charts->addWidget(viewTimeSignalDesign_);
    charts->addWidget(viewFreqSignalDesign_);
    charts->setStretchFactor(0, 0);
    charts->setStretchFactor(1, 1);
    charts->setStretchFactor(2, 1);
    charts->setChildrenCollapsible(false);

    QSplitter* split = makeFormAndCharts(buildForm(), charts, this);
    split->setObjectName(QStringLiteral("signalSplit"));
    setCentralWidget(split);
    fitToScreen(*this, QSize(1080, 760));
}

QWidget* GVRWinSignalDesign::buildForm()
{
    auto* form = new QWidget(this);
    form->setObjectName(QStringLiteral("signalForm"));
    auto* column = new QVBoxLayout(form);

    // Function, units and sampling frequency.
    auto* signal = new QGroupBox(tr("Signal"), form);
    auto* signalGrid = new QGridLayout(signal);
    yFuncStepper_ = makeStepper(new QSpinBox(signal), kFunctionMax, "yFuncStepper");
    freqUnitsPopUp_ = makePopUp("freqUnitsPopUp", signal);
    voltUnitsPopUp_ = makePopUp("voltUnitsPopUp", signal);
    freqSampField_ = new GVRNumberField(signal);
    freqSampField_->setObjectName(QStringLiteral("freqSampField"));
    freqUnitsLabel_ = new QLabel(signal);
    freqUnitsLabel_->setObjectName(QStringLiteral("freqUnitsLabel"));
    const int unitWidth = freqUnitsLabel_->fontMetrics().horizontalAdvance(QStringLiteral("MHz  "));
    freqUnitsLabel_->setMinimumWidth(unitWidth);
    signalGrid->addWidget(new QLabel(tr("Function:"), signal), 0, 0);
    signalGrid->addWidget(yFuncStepper_, 0, 1);
    signalGrid->addWidget(new QLabel(tr("Frequency:"), signal), 1, 0);
    signalGrid->addWidget(freqUnitsPopUp_, 1, 1);
    signalGrid->addWidget(new QLabel(tr("Voltage:"), signal), 2, 0);
    signalGrid->addWidget(voltUnitsPopUp_, 2, 1);
    signalGrid->addWidget(new QLabel(tr("fsamp:"), signal), 3, 0);
    signalGrid->addWidget(freqSampField_, 3, 1);
    signalGrid->addWidget(freqUnitsLabel_, 3, 2);
    signalGrid->setColumnStretch(1, 1);
    column->addWidget(signal);

    // The six function parameters: symbol, value, unit caption.
    parmBox_ = new QGroupBox(tr("Parameters"), form);
    parmBox_->setObjectName(QStringLiteral("parmBox"));
    auto* parmGrid = new QGridLayout(parmBox_);
    QFont symbolFont = parmBox_->font();
    symbolFont.setPointSizeF(symbolFont.pointSizeF() * 1.15);
    for (int slot = 0; slot < kParms; ++slot) {
        const QString n = QString::number(slot + 1);
        auto* label = new QLabel(parmBox_);
        label->setObjectName(QStringLiteral("parm%1Label").arg(n));
        label->setFont(symbolFont);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("fₐ₁ ")));
        auto* field = new GVRNumberField(parmBox_);
        field->setObjectName(QStringLiteral("parm%1Field").arg(n));
        auto* units = new QLabel(parmBox_);
        units->setObjectName(QStringLiteral("parm%1UnitsLabel").arg(n));
        units->setMinimumWidth(unitWidth);
        parmGrid->addWidget(label, slot, 0);
        parmGrid->addWidget(field, slot, 1);
        parmGrid->addWidget(units, slot, 2);
        parmLabels_[std::size_t(slot)] = label;
        parmFields_[std::size_t(slot)] = field;
        parmUnitsLabels_[std::size_t(slot)] = units;
    }
    parmGrid->setColumnStretch(1, 1);
    column->addWidget(parmBox_);

    designSignalBut_ = new QPushButton(tr("Design"), form);
    designSignalBut_->setObjectName(QStringLiteral("designSignalBut"));
    designSignalBut_->setDefault(true);
    column->addWidget(designSignalBut_);

    // Magnification of the time chart.
    auto* display = new QGroupBox(tr("Time chart"), form);
    auto* displayGrid = new QGridLayout(display);
    zoomStepper_ = makeStepper(new ZoomSpinBox(display), kZoomMax, "zoomStepper");
    zoomStepper_->setMinimum(kZoomMin);
    displayGrid->addWidget(new QLabel(tr("Zoom:"), display), 0, 0);
    displayGrid->addWidget(zoomStepper_, 0, 1);
    displayGrid->setColumnStretch(1, 1);
    column->addWidget(display);

    column->addStretch(1);
    noteField_ = makeNoteLine(form);
    column->addWidget(noteField_);
    form->setMinimumWidth(300);
    return form;
}

void GVRWinSignalDesign::setToolTips()
{
    freqUnitsPopUp_->setToolTip(
        tr("Select the Units for the Sampling Frequency and other frequency parameters"));
    voltUnitsPopUp_->setToolTip(tr("Select the Units for all voltage parameters"));
    freqSampField_->setToolTip(tr("Input the system's Sampling Frequency"));
    zoomStepper_->setToolTip(tr("Magnification of Time Domain Signal"));
    yFuncStepper_->setToolTip(tr("Select a Signal Function"));
}

void GVRWinSignalDesign::connectControls()
{
    connect(freqUnitsPopUp_, &QComboBox::activated, this, &GVRWinSignalDesign::selectFreqUnitsPopUpBut);
    connect(voltUnitsPopUp_, &QComboBox::activated, this, &GVRWinSignalDesign::selectVoltUnitsPopUpBut);
    connect(yFuncStepper_, &QSpinBox::valueChanged, this, &GVRWinSignalDesign::pressYStepperBut);
    connect(zoomStepper_, &QSpinBox::valueChanged, this, &GVRWinSignalDesign::pressZoomStepperBut);
    connect(designSignalBut_, &QPushButton::clicked, this, &GVRWinSignalDesign::pressDesignSignalBut);
    // Return in a number field designs, as the default button would in a panel.
    connect(freqSampField_, &QLineEdit::returnPressed, this, &GVRWinSignalDesign::pressDesignSignalBut);
    for (GVRNumberField* field : parmFields_)
        connect(field, &QLineEdit::returnPressed, this, &GVRWinSignalDesign::pressDesignSignalBut);
    // Edits mark the design changed since its last save or open.
    auto edited = [this] { fileCommands_->setModified(true); };
    connect(freqSampField_, &QLineEdit::textEdited, this, edited);
    for (GVRNumberField* field : parmFields_)
        connect(field, &QLineEdit::textEdited, this, edited);
    connect(freqUnitsPopUp_, &QComboBox::activated, this, edited);
    connect(voltUnitsPopUp_, &QComboBox::activated, this, edited);
    connect(yFuncStepper_, &QSpinBox::valueChanged, this, edited);
    // Return in the function stepper designs, as in the number fields.
    connect(spinBoxEditor(yFuncStepper_), &QLineEdit::returnPressed, this,
            &GVRWinSignalDesign::pressDesignSignalBut);
}

void GVRWinSignalDesign::closeEvent(QCloseEvent* event)
{
    if (fileCommands_->mayClose())
        event->accept();
    else
        event->ignore();
}

void GVRWinSignalDesign::createFileActions()
{
    fileActions_ = addFileActions(*this, "signal", *fileCommands_);
}

bool GVRWinSignalDesign::windowIsKeyWindow() const
{
    return isActiveWindow();
}

void GVRWinSignalDesign::showGVRWinSignalDesign()
{
    show();
    raise();
    activateWindow();
}

void GVRWinSignalDesign::newMenuItem()
{
    fileCommands_->newMenuItem();
}

void GVRWinSignalDesign::openMenuItem()
{
    fileCommands_->openMenuItem();
}

void GVRWinSignalDesign::saveMenuItem()
{
    fileCommands_->saveMenuItem();
}

void GVRWinSignalDesign::saveAsMenuItem()
{
    fileCommands_->saveAsMenuItem();
}

int GVRWinSignalDesign::functionIndex() const
{
    return yFuncStepper_->value();
}

void GVRWinSignalDesign::initPopUpsWithMandatoryFlag(bool mandatory)
{
    if (!mandatory && freqUnitsPopUp_->count() == 2 && voltUnitsPopUp_->count() == 2)
        return;
    for (auto [popUp, titles] :
         {std::pair{freqUnitsPopUp_, &freqUnitsTitle()}, std::pair{voltUnitsPopUp_, &voltUnitsTitle()}}) {
        const QSignalBlocker quiet(popUp);
        popUp->clear();
        popUp->addItems(*titles);
        popUp->setCurrentIndex(0);
    }
    previousFreqUnitsSelected_ = 0;
    previousVoltUnitsSelected_ = 0;
    updateUnitsAndHiddenFields();
    fileCommands_->refreshTitle();
}

void GVRWinSignalDesign::initSteppers()
{
    yFuncStepper_->setRange(0, kFunctionMax);
    // The caption goes back to "x16"; the time chart keeps its zoom until the
    // stepper is next used.
    const QSignalBlocker quiet(zoomStepper_);
    zoomStepper_->setRange(kZoomMin, kZoomMax);
    zoomStepper_->setValue(kZoomStart);
}

void GVRWinSignalDesign::updateUnitsAndHiddenFields()
{
    const int function = functionIndex();
    const int freqUnits = std::max(freqUnitsPopUp_->currentIndex(), 0);
    const int voltUnits = std::max(voltUnitsPopUp_->currentIndex(), 0);
    const FunctionCodes codes =
        function >= 0 && function < kFunctions ? kCodes[function] : FunctionCodes{"", ""};
    const QString blank = QStringLiteral(" ");

    freqUnitsLabel_->setText(freqUnitsTitle().value(freqUnits));
    for (int slot = 0; slot < kParms; ++slot) {
        const std::size_t s = std::size_t(slot);
        parmLabels_[s]->setText(parmTitle(slot, function));
        const char tip = codes.tips[0] ? codes.tips[slot] : ' ';
        parmFields_[s]->setToolTip(toolTipOf(tip));
        QString caption = blank;
        switch (codes.units[0] ? codes.units[slot] : ' ') {
        case 'V':
            caption = voltUnitsTitle().value(voltUnits);
            break;
        case 'F':
            caption = freqUnitsTitle().value(freqUnits);
            break;
        case 'T':
            caption = timeUnitsTitle().value(freqUnits);
            break;
        case 'R':
            caption = QStringLiteral("Rad");
            break;
        default:
            break;
        }
        parmUnitsLabels_[s]->setText(caption);
    }
}

void GVRWinSignalDesign::clearSignalDesignParameters()
{
    freqSampField_->clear();
    for (GVRNumberField* field : parmFields_)
        field->clear();
    initSteppers();
}

void GVRWinSignalDesign::scaleFields(const QList<GVRNumberField*>& fields, double factor)
{
    for (GVRNumberField* field : fields) {
        const std::optional<double> value = field->numberValue();
        // An absurd value that would overflow stays as typed.
        if (value && std::isfinite(*value * factor))
            field->setDoubleValue(*value * factor);
    }
}

void GVRWinSignalDesign::selectFreqUnitsPopUpBut(int index)
{
    if (index != previousFreqUnitsSelected_) {
        const double factor = index == kToKilo ? kUnitFactor : 1.0 / kUnitFactor;
        QList<GVRNumberField*> fields{freqSampField_};
        for (int slot : frequencySlots(functionIndex()))
            fields.append(parmFields_[std::size_t(slot)]);
        scaleFields(fields, factor);
    }
    updateUnitsAndHiddenFields();
    pressDesignSignalBut();
    previousFreqUnitsSelected_ = index;
}

void GVRWinSignalDesign::selectVoltUnitsPopUpBut(int index)
{
    if (index != previousVoltUnitsSelected_) {
        const double factor = index == kToKilo ? kUnitFactor : 1.0 / kUnitFactor;
        QList<GVRNumberField*> fields;
        for (int slot : voltageSlots(functionIndex()))
            fields.append(parmFields_[std::size_t(slot)]);
        scaleFields(fields, factor);
    }
    updateUnitsAndHiddenFields();
    pressDesignSignalBut();
    previousVoltUnitsSelected_ = index;
}

void GVRWinSignalDesign::pressYStepperBut(int function)
{
    // A new function starts from empty entries; nothing is designed.
    clearSignalDesignParameters();
    updateUnitsAndHiddenFields();
    viewFuncSignalDesign_->newFunctionWithIndex(function);
}

void GVRWinSignalDesign::pressZoomStepperBut(int level)
{
    viewTimeSignalDesign_->setZoomLevel(double(1 << std::clamp(level, kZoomMin, kZoomMax)));
}

void GVRWinSignalDesign::pressDesignSignalBut()
{
    // Values typed but not yet confirmed count.
    yFuncStepper_->interpretText();
    std::array<double, kParms> parms{};
    for (int slot = 0; slot < kParms; ++slot)
        parms[std::size_t(slot)] = parmFields_[std::size_t(slot)]->doubleValue();
    signalParameterDictionary_ = GVRSignalDesignerModel::parameterDictionary(
        std::max(freqUnitsPopUp_->currentIndex(), 0), std::max(voltUnitsPopUp_->currentIndex(), 0),
        freqSampField_->doubleValue(), double(functionIndex()), parms);
    if (signalParameterDictionary_.size() == 10 &&
        signalDesignerModel_.designSignalWithParameters(signalParameterDictionary_) != DesignOutcome::Refused)
        fileCommands_->setModified(true);
}

void GVRWinSignalDesign::displayNoteField(const QString& text, double value, bool withValue)
{
    showNote(*noteField_, text, value, withValue);
}

void GVRWinSignalDesign::plotTimeWithArray(const std::vector<double>& timeArray)
{
    timeArray_ = timeArray;
    viewTimeSignalDesign_->newTimeDomainChart();
}

void GVRWinSignalDesign::plotFreqWithArray(const std::vector<double>& freqArray)
{
    freqArray_ = freqArray;
    viewFreqSignalDesign_->newFreqDomainChart();
}

void GVRWinSignalDesign::restoreSignalParameters(const QVariantMap& parameters)
{
    if (parameters.size() != 10)
        return;
    if (selectIndex(freqUnitsPopUp_, parameters.value(KEYSP_FREQ_UNITS)))
        previousFreqUnitsSelected_ = freqUnitsPopUp_->currentIndex();
    if (selectIndex(voltUnitsPopUp_, parameters.value(KEYSP_VOLT_UNITS)))
        previousVoltUnitsSelected_ = voltUnitsPopUp_->currentIndex();
    freqSampField_->setDoubleValue(parameters.value(KEYSP_FREQ_SAMP).toDouble());
    const double function = parameters.value(KEYSP_Y_STEP).toDouble();
    if (function >= 0 && function <= kFunctionMax && function == std::floor(function)) {
        // Restoring is not stepping: the fields below must not be emptied.
        const QSignalBlocker quiet(yFuncStepper_);
        yFuncStepper_->setValue(int(function));
    }
    for (int slot = 0; slot < kParms; ++slot)
        parmFields_[std::size_t(slot)]->setDoubleValue(parameters.value(KEYSP_PARMS[slot]).toDouble());
    viewFuncSignalDesign_->newFunctionWithIndex(functionIndex());
    updateUnitsAndHiddenFields();
}
