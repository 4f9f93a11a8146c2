// The filter designer window: form, unit conversions, charts and file commands.
#include "filter/filter_design_window.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include <QCloseEvent>
#include <QFocusEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QVBoxLayout>

#include "charts/view_filt_design.h"
#include "charts/view_results.h"
#include "archive/design_titles.h"
#include "dsp/fir_synthesis.h"
#include "dsp/window.h"
#include "filter/filter_keys.h"
#include "filter/mask_section.h"
#include "library/design_library.h"
#include "widgets/design_file_commands.h"
#include "widgets/design_file_kind.h"
#include "widgets/number_field.h"
#include "widgets/window_parts.h"

namespace {

constexpr int kLengthMin = kDesignMinTaps;
constexpr int kLengthMax = kDesignMaxTaps;
constexpr int kLengthStep = 2;
constexpr int kUnitsNorm = 0;
constexpr int kUnitsDefault = 2; // "MHz"
constexpr int kBandPass = kFilterBandPass;
constexpr int kKaiser = kWindowKaiser;
constexpr int kChebyshev = kWindowChebyshev;

// The length field and its stepper in one: whole odd numbers from 25 to 255.
// Any run of digits may be typed; one that is not such a length stays as
// typed (in the warning state) for the design to refuse in words, instead of
// the keystroke being dropped and 300 turning into 31.
class OddLengthSpinBox : public QSpinBox {
public:
    using QSpinBox::QSpinBox;

protected:
    QValidator::State validate(QString& text, int& position) const override
    {
        QValidator::State state = QSpinBox::validate(text, position);
        const QString digits = text.trimmed();
        const bool allDigits = !digits.isEmpty() && digits.size() <= 6 &&
                               std::all_of(digits.begin(), digits.end(), [](QChar c) { return c.isDigit(); });
        if (state == QValidator::Invalid && allDigits)
            state = QValidator::Intermediate;
        if (state == QValidator::Acceptable && valueFromText(text) % 2 == 0)
            state = QValidator::Intermediate;
        return state;
    }
    // Nothing is made up: what was typed stays until the design answers,
    // even when the focus moves on (the spin box would put the old value back).
    void fixup(QString&) const override {}
    void focusOutEvent(QFocusEvent* event) override
    {
        const QString typed = lineEdit()->text();
        const bool keep = !hasAcceptableInput();
        QSpinBox::focusOutEvent(event);
        if (keep)
            lineEdit()->setText(typed);
    }
};

// The whole number typed in a spin box, even one outside its range; none
// for text that is not a whole number.
std::optional<double> typedWholeNumber(QSpinBox* box)
{
    bool ok = false;
    const int typed = box->cleanText().trimmed().toInt(&ok);
    return ok ? std::optional<double>(typed) : std::nullopt;
}

QStringList splitTitles(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(','));
}

GVRNumberField* makeField(const char* name, QWidget* parent)
{
    auto* field = new GVRNumberField(parent);
    field->setObjectName(QLatin1String(name));
    return field;
}

QLabel* makeLabel(const char* name, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    return label;
}

void fill(QComboBox* popUp, const QStringList& titles, int selected)
{
    const QSignalBlocker quiet(popUp);
    popUp->clear();
    popUp->addItems(titles);
    popUp->setCurrentIndex(selected);
}

// Selects `value` when it names an item of the list; anything else changes nothing.
void selectIndex(QComboBox* popUp, const QVariant& value)
{
    bool ok = false;
    const double index = value.toDouble(&ok);
    if (ok && index >= 0 && index < popUp->count() && index == std::floor(index))
        popUp->setCurrentIndex(int(index));
}

} // namespace

const QStringList& GVRWinFilterDesign::unitsFieldTitle()
{
    return titles::filterUnits();
}

const QStringList& GVRWinFilterDesign::unitsFieldSampFreqTitle()
{
    static const QStringList titles = splitTitles("    ,KHz,MHz");
    return titles;
}

const QStringList& GVRWinFilterDesign::filterTypeTitle()
{
    return titles::filterTypes();
}

const QStringList& GVRWinFilterDesign::bitWidthTitle()
{
    return titles::bitWidths();
}

const QStringList& GVRWinFilterDesign::windowTypeTitle()
{
    return titles::windowTypes();
}

const QStringList& GVRWinFilterDesign::chartTypeTitle()
{
    static const QStringList titles = splitTitles("Magnitude,Phase");
    return titles;
}

GVRWinFilterDesign::GVRWinFilterDesign(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), filterDesignModel_(library)
{
    setObjectName(QStringLiteral("GVRWinFilterDesign"));
    filterDesignModel_.setWindow(this);

    buildControls();

    DesignFileHooks hooks;
    hooks.bringToFront = [this] { showGVRWinFilterDesign(); };
    hooks.clearForNew = [this] {
        clearFilterDesignParameters();
        clearFilterDesignResults();
        noteField_->clear();
        initializeWithMandatoryFlag(true);
        plotMagnitudeAndPhaseWithArray({});
        // The model forgets its design too: a save now has nothing to write.
        filterDesignModel_.clearDesign();
    };
    hooks.openDesign = [this](const QString& name) {
        return filterDesignModel_.openFilterDesignWithFileName(name);
    };
    hooks.saveDesign = [this](const QString& name) {
        return filterDesignModel_.saveFilterDesignWithFileName(name);
    };
    hooks.redesign = [this] { redesignAfterOpen(); };
    hooks.nothingToSave = [this] {
        return filterDesignModel_.designedDesign().validResultsFlag
                   ? QString()
                   : tr("There is no filter design to save: design a filter first.");
    };
    hooks.lastFileError = [this] { return filterDesignModel_.lastFileError(); };
    hooks.showNote = [this](const QString& text) { displayNoteField(text, 0.0, false); };
    DesignLibrary* lib = &library;
    fileCommands_ = new DesignFileCommands(
        this, DesignFileKind::filter([lib] { return lib->filterFolder(); }), std::move(hooks), this);

    initializeWithMandatoryFlag(false);
    setToolTips();
    connectControls();
    createFileActions();
}

GVRWinFilterDesign::~GVRWinFilterDesign()
{
    filterDesignModel_.setWindow(nullptr);
}

std::optional<QString> GVRWinFilterDesign::filterFilename() const
{
    return fileCommands_->currentName();
}

void GVRWinFilterDesign::buildControls()
{
    viewFiltDesign_ = new GVRViewFiltDesign(this);
    viewFiltDesign_->setObjectName(QStringLiteral("viewFiltDesign"));
    viewFiltDesign_->setMagPhaseSource(this);
    viewFiltDesign_->setMinimumSize(320, 180);
    viewResult_ = new GVRViewResults(this);
    viewResult_->setObjectName(QStringLiteral("viewResult"));
    // The panel places its rows for its designed height; taller would push
    // the last rows out at the bottom.
    viewResult_->setFixedHeight(viewResult_->sizeHint().height());
    viewResult_->setMinimumWidth(360);

    auto* charts = new QWidget(this);
    charts->setObjectName(QStringLiteral("filterCharts"));
    auto* chartColumn = new QVBoxLayout(charts);
    chartColumn->setContentsMargins(0, 0, 0, 0);
    chartColumn->setSpacing(6);
    buildAnalysisControls(chartColumn);

    QSplitter* split = makeFormAndCharts(buildForm(), charts, this);
    split->setObjectName(QStringLiteral("filterSplit"));
    setCentralWidget(split);
    fitToScreen(*this, QSize(1080, 700));
}

QWidget* GVRWinFilterDesign::buildForm()
{
    auto* form = new QWidget(this);
    form->setObjectName(QStringLiteral("filterForm"));
    auto* column = new QVBoxLayout(form);

    // Units and filter type.
    auto* kind = new QGroupBox(tr("Filter"), form);
    auto* kindGrid = new QGridLayout(kind);
    unitsPopUp_ = makePopUp("unitsPopUp", kind);
    filterTypePopUp_ = makePopUp("filterTypePopUp", kind);
    kindGrid->addWidget(new QLabel(tr("Units:"), kind), 0, 0);
    kindGrid->addWidget(unitsPopUp_, 0, 1);
    kindGrid->addWidget(new QLabel(tr("Type:"), kind), 1, 0);
    kindGrid->addWidget(filterTypePopUp_, 1, 1);
    kindGrid->setColumnStretch(1, 1);
    column->addWidget(kind);

    // Frequencies, each with its unit label.
    auto* freqs = new QGroupBox(tr("Frequencies"), form);
    auto* freqGrid = new QGridLayout(freqs);
    nameThetaSampling_ = makeLabel("nameThetaSampling", tr("fsampling:"), freqs);
    thetaSamplingField_ = makeField("thetaSamplingField", freqs);
    unitsSampFreq_ = makeLabel("unitsSampFreq", QString(), freqs);
    nameThetaCutoff_ = makeLabel("nameThetaCutoff", tr("fcutoff:"), freqs);
    thetaCutoffField_ = makeField("thetaCutoffField", freqs);
    unitsCutoffFreq_ = makeLabel("unitsCutoffFreq", QString(), freqs);
    nameThetaCenter_ = makeLabel("nameThetaCenter", tr("fcenter:"), freqs);
    thetaCenterField_ = makeField("thetaCenterField", freqs);
    unitsCenterFreq_ = makeLabel("unitsCenterFreq", QString(), freqs);
    const int unitWidth = unitsCutoffFreq_->fontMetrics().horizontalAdvance(QStringLiteral("Norm  "));
    int row = 0;
    for (auto [name, field, units] : {std::tuple{nameThetaSampling_, thetaSamplingField_, unitsSampFreq_},
                                      std::tuple{nameThetaCutoff_, thetaCutoffField_, unitsCutoffFreq_},
                                      std::tuple{nameThetaCenter_, thetaCenterField_, unitsCenterFreq_}}) {
        units->setMinimumWidth(unitWidth);
        freqGrid->addWidget(name, row, 0);
        freqGrid->addWidget(field, row, 1);
        freqGrid->addWidget(units, row, 2);
        ++row;
    }
    freqGrid->setColumnStretch(1, 1);
    column->addWidget(freqs);

    // Length, window and its parameter, coefficient width.
    auto* shape = new QGroupBox(tr("Length and window"), form);
    auto* shapeGrid = new QGridLayout(shape);
    filterLengthStepper_ = new OddLengthSpinBox(shape);
    filterLengthStepper_->setObjectName(QStringLiteral("filterLengthField"));
    filterLengthStepper_->setAlignment(Qt::AlignRight);
    filterLengthStepper_->setSuffix(QString());
    windowTypePopUp_ = makePopUp("windowTypePopUp", shape);
    nameBetaUpsilon_ = makeLabel("nameBetaUpsilon", QStringLiteral("β:"), shape);
    betaUpsilonField_ = makeField("betaUpsilonField", shape);
    bitWidthPopUp_ = makePopUp("bitWidthPopUp", shape);
    shapeGrid->addWidget(new QLabel(tr("Length N:"), shape), 0, 0);
    shapeGrid->addWidget(filterLengthStepper_, 0, 1);
    shapeGrid->addWidget(new QLabel(tr("taps"), shape), 0, 2);
    shapeGrid->addWidget(new QLabel(tr("Window:"), shape), 1, 0);
    shapeGrid->addWidget(windowTypePopUp_, 1, 1, 1, 2);
    shapeGrid->addWidget(nameBetaUpsilon_, 2, 0);
    shapeGrid->addWidget(betaUpsilonField_, 2, 1);
    shapeGrid->addWidget(new QLabel(tr("Width:"), shape), 3, 0);
    shapeGrid->addWidget(bitWidthPopUp_, 3, 1, 1, 2);
    shapeGrid->setColumnStretch(1, 1);
    column->addWidget(shape);

    // Which response the chart shows.
    auto* display = new QGroupBox(tr("Chart"), form);
    auto* displayGrid = new QGridLayout(display);
    chartTypePopUp_ = makePopUp("chartTypePopUp", display);
    displayGrid->addWidget(new QLabel(tr("Response:"), display), 0, 0);
    displayGrid->addWidget(chartTypePopUp_, 0, 1);
    displayGrid->setColumnStretch(1, 1);
    displayGrid->addWidget(buildCompareRow(display), 1, 0, 1, 2);
    column->addWidget(display);

    column->addWidget(buildMaskSection());

    auto* buttons = new QHBoxLayout;
    designFilterBut_ = new QPushButton(tr("Design"), form);
    designFilterBut_->setObjectName(QStringLiteral("designFilterBut"));
    designFilterBut_->setDefault(true);
    saveFilterBut_ = new QPushButton(tr("Save…"), form);
    saveFilterBut_->setObjectName(QStringLiteral("saveFilterBut"));
    buttons->addWidget(designFilterBut_, 2);
    buttons->addWidget(saveFilterBut_, 1);
    column->addLayout(buttons);

    column->addStretch(1);
    noteField_ = makeNoteLine(form);
    column->addWidget(noteField_);
    form->setMinimumWidth(300);
    return form;
}

void GVRWinFilterDesign::setToolTips()
{
    unitsPopUp_->setToolTip(
        tr("Range of Normalized is 0:1 where unity represents one-half the Sampling Frequency"));
    bitWidthPopUp_->setToolTip(tr("Fixed-Point required for export of FIR coefficients"));
    windowTypePopUp_->setToolTip(tr("Select a Windowing Function to optimize the Filter design"));
    chartTypePopUp_->setToolTip(tr("Filter's Magnitude or (Unwrapped) Phase Response"));
    thetaSamplingField_->setToolTip(tr("Input the system's Sampling Frequency"));
    thetaCutoffField_->setToolTip(tr("Input the Filter's Cutoff Frequency"));
    thetaCenterField_->setToolTip(tr("Input the Center Frequency for the Bandpass Filter"));
    filterLengthStepper_->setToolTip(tr("Length of Filter (25 to 255 taps in odd increments)"));
    betaUpsilonField_->setToolTip(tr("Select a small fractional value (less than 10) to optimize response"));
}

void GVRWinFilterDesign::connectControls()
{
    connect(unitsPopUp_, &QComboBox::activated, this, &GVRWinFilterDesign::selectUnitsPopUpBut);
    connect(filterTypePopUp_, &QComboBox::activated, this, [this] { updateUnitsAndHiddenFields(); });
    connect(windowTypePopUp_, &QComboBox::activated, this, [this] { updateUnitsAndHiddenFields(); });
    connect(chartTypePopUp_, &QComboBox::activated, this, &GVRWinFilterDesign::selectChartTypePopUpBut);
    connect(designFilterBut_, &QPushButton::clicked, this, &GVRWinFilterDesign::pressDesignFilterBut);
    connect(saveFilterBut_, &QPushButton::clicked, this, &GVRWinFilterDesign::saveMenuItem);
    // Return in a number field designs, as the default button would in a panel.
    for (GVRNumberField* field :
         {thetaSamplingField_, thetaCutoffField_, thetaCenterField_, betaUpsilonField_}) {
        connect(field, &QLineEdit::returnPressed, this, &GVRWinFilterDesign::pressDesignFilterBut);
        connect(field, &QLineEdit::textEdited, this, [this] { fileCommands_->setModified(true); });
    }
    // Return in the length designs too, as in every other field.
    connect(spinBoxEditor(filterLengthStepper_), &QLineEdit::returnPressed, this,
            &GVRWinFilterDesign::pressDesignFilterBut);
    connect(filterLengthStepper_, &QSpinBox::valueChanged, this,
            [this] { fileCommands_->setModified(true); });
    for (QComboBox* popUp : {unitsPopUp_, filterTypePopUp_, windowTypePopUp_, bitWidthPopUp_})
        connect(popUp, &QComboBox::activated, this, [this] { fileCommands_->setModified(true); });
}

void GVRWinFilterDesign::closeEvent(QCloseEvent* event)
{
    if (fileCommands_->mayClose())
        event->accept();
    else
        event->ignore();
}

void GVRWinFilterDesign::createFileActions()
{
    fileActions_ = addFileActions(*this, "filter", *fileCommands_);
}

bool GVRWinFilterDesign::windowIsKeyWindow() const
{
    return isActiveWindow();
}

void GVRWinFilterDesign::showGVRWinFilterDesign()
{
    show();
    raise();
    activateWindow();
}

void GVRWinFilterDesign::newMenuItem()
{
    fileCommands_->newMenuItem();
}

void GVRWinFilterDesign::openMenuItem()
{
    fileCommands_->openMenuItem();
}

void GVRWinFilterDesign::saveMenuItem()
{
    fileCommands_->saveMenuItem();
}

void GVRWinFilterDesign::saveAsMenuItem()
{
    fileCommands_->saveAsMenuItem();
}

void GVRWinFilterDesign::initializeWithMandatoryFlag(bool mandatory)
{
    if (windowTypePopUp_->count() == windowTypeTitle().size() && !mandatory)
        return;
    fill(unitsPopUp_, unitsFieldTitle(), kUnitsDefault);
    previousUnitsSelected_ = kUnitsDefault;
    fill(filterTypePopUp_, filterTypeTitle(), 0);
    fill(bitWidthPopUp_, bitWidthTitle(), 0);
    fill(windowTypePopUp_, windowTypeTitle(), 0);
    fill(chartTypePopUp_, chartTypeTitle(), 0);
    chartTypePopUp_->addItem(tr("Word Length"));
    chartTypePopUp_->addItems({tr("Impulse"), tr("Step"), tr("Group Delay"), tr("Zeros")});

    filterLengthStepper_->setRange(kLengthMin, kLengthMax);
    filterLengthStepper_->setSingleStep(kLengthStep);
    filterLengthStepper_->setWrapping(true);
    filterLengthStepper_->setValue(kLengthMin);
    updateUnitsAndHiddenFields();
    fileCommands_->refreshTitle();
}

void GVRWinFilterDesign::updateUnitsAndHiddenFields()
{
    const int units = unitsPopUp_->currentIndex();
    const int type = filterTypePopUp_->currentIndex();
    const int window = windowTypePopUp_->currentIndex();

    const bool sampling = units != kUnitsNorm;
    for (QWidget* w :
         std::initializer_list<QWidget*>{thetaSamplingField_, nameThetaSampling_, unitsSampFreq_})
        w->setVisible(sampling);
    const bool center = type == kBandPass;
    for (QWidget* w : std::initializer_list<QWidget*>{thetaCenterField_, nameThetaCenter_, unitsCenterFreq_})
        w->setVisible(center);
    const bool parameter = window == kKaiser || window == kChebyshev;
    if (window == kKaiser)
        nameBetaUpsilon_->setText(QStringLiteral("β:"));
    else if (window == kChebyshev)
        nameBetaUpsilon_->setText(QStringLiteral("ϒ:"));
    betaUpsilonField_->setVisible(parameter);
    nameBetaUpsilon_->setVisible(parameter);

    unitsSampFreq_->setText(unitsFieldSampFreqTitle().value(units));
    unitsCutoffFreq_->setText(unitsFieldTitle().value(units));
    unitsCenterFreq_->setText(unitsFieldTitle().value(units));

    // Results on show keep the labels of the design that made them; a change
    // of type or units waits for the next design.
    if (!viewResult_->hasResults()) {
        viewResult_->setFreqUnits(units);
        viewResult_->setFilterType(type);
    }
    maskSection_->setFilterType(type);
}

void GVRWinFilterDesign::selectUnitsPopUpBut(int now)
{
    const int previous = previousUnitsSelected_;
    if (now != previous) {
        const bool bandPass = filterTypePopUp_->currentIndex() == kBandPass;
        const double fs = thetaSamplingField_->doubleValue();
        const double cutoff = thetaCutoffField_->doubleValue();
        const double center = thetaCenterField_->doubleValue();
        // A result that is not a number (no sampling frequency to divide by)
        // leaves the field as typed.
        auto put = [](GVRNumberField* field, double value) {
            if (std::isfinite(value))
                field->setDoubleValue(value);
        };
        if (now == kUnitsNorm) {
            // The sampling field keeps its value, hidden.
            if (cutoff > 0.0)
                put(thetaCutoffField_, cutoff / (fs * 0.5));
            if (bandPass && center > 0.0)
                put(thetaCenterField_, center / (fs * 0.5));
        } else if (previous == kUnitsNorm) {
            // Normalised values carry no rate: the user has to give one.
            thetaSamplingField_->setDoubleValue(0.0);
        } else {
            const double factor = std::pow(10.0, 3.0 * (previous - now));
            if (fs > 0.0 && cutoff > 0.0) {
                put(thetaSamplingField_, fs * factor);
                put(thetaCutoffField_, cutoff * factor);
            }
            if (bandPass && center > 0.0)
                put(thetaCenterField_, center * factor);
        }
        clearFilterDesignResults();
        updateUnitsAndHiddenFields();
        // A unit change re-sends the chart: the new design's curve, or an empty
        // frame when the new units were refused. The old curve in the old unit
        // must not stay under the new one, nor be saved as if it were current.
        if (pressDesignFilterBut() != DesignOutcome::Designed) {
            filterDesignModel_.clearDesign();
            plotMagnitudeAndPhaseWithArray({});
        }
    }
    updateUnitsAndHiddenFields();
    previousUnitsSelected_ = now;
}

void GVRWinFilterDesign::selectChartTypePopUpBut()
{
    if (showWordLengthChart())
        return;
    viewFiltDesign_->newChartOfType(chartTypePopUp_->currentIndex(),
                                    unitsFieldTitle().value(unitsPopUp_->currentIndex()));
}

DesignOutcome GVRWinFilterDesign::pressDesignFilterBut()
{
    // A length typed but not yet confirmed counts; one out of range is sent as
    // typed, so the model refuses it in words instead of it turning into another.
    const std::optional<double> typedLength = typedWholeNumber(filterLengthStepper_);
    if (filterLengthStepper_->hasAcceptableInput())
        filterLengthStepper_->interpretText();

    const int units = unitsPopUp_->currentIndex();
    const int type = filterTypePopUp_->currentIndex();
    const int window = windowTypePopUp_->currentIndex();
    filterParameterDictionary_.clear();
    filterParameterDictionary_.insert(KEYFP_UNITS, units);
    filterParameterDictionary_.insert(KEYFP_FILTER_TYPE, type);

    // A field the design uses must hold a number, or its key is left out and
    // nothing is designed. A hidden field the design ignores reads as 0 when empty.
    QStringList missing;
    auto number = [&](const QString& key, GVRNumberField* field, bool used, const QString& symbol) {
        if (const std::optional<double> value = field->numberValue()) {
            filterParameterDictionary_.insert(key, *value);
        } else if (!used) {
            filterParameterDictionary_.insert(key, 0.0);
        } else {
            field->flagMissingNumber();
            missing << symbol;
        }
    };
    number(KEYFP_SAMPLING_FREQ, thetaSamplingField_, units != kUnitsNorm, QStringLiteral("fsampling"));
    number(KEYFP_CUTOFF_FREQ, thetaCutoffField_, true, QStringLiteral("fcutoff"));
    number(KEYFP_CENTER_FREQ, thetaCenterField_, type == kBandPass, QStringLiteral("fcenter"));
    filterParameterDictionary_.insert(KEYFP_FILTER_LENGTH,
                                      typedLength.value_or(filterLengthStepper_->value()));
    filterParameterDictionary_.insert(KEYFP_FILTER_WIDTH, bitWidthPopUp_->currentIndex());
    filterParameterDictionary_.insert(KEYFP_WINDOW_TYPE, window);
    number(KEYFP_BETA_UPSILON, betaUpsilonField_, window == kKaiser || window == kChebyshev,
           window == kKaiser ? QStringLiteral("β") : QStringLiteral("ϒ"));

    if (!missing.isEmpty()) {
        // The pink field alone is easy to miss; the note line names it.
        displayNoteField(tr("VALID RANGE: %1 is empty").arg(missing.join(QStringLiteral(", "))), 0.0, false);
        return DesignOutcome::Refused;
    }
    if (filterParameterDictionary_.size() != 9)
        return DesignOutcome::Refused;
    const DesignOutcome outcome = filterDesignModel_.designFilterWithParameters(filterParameterDictionary_);
    if (outcome != DesignOutcome::Refused)
        fileCommands_->setModified(true);
    return outcome;
}

void GVRWinFilterDesign::displayNoteField(const QString& text, double value, bool withValue)
{
    showNote(*noteField_, text, value, withValue);
}

void GVRWinFilterDesign::displayFilterDesignResults(const QVariantMap& results)
{
    // Labelled with the units and type these results were designed with.
    viewResult_->setFreqUnits(filterDesignModel_.unitsType());
    viewResult_->setFilterType(filterDesignModel_.filterType());
    viewResult_->displayFilterDesignResults(results);
}

void GVRWinFilterDesign::clearFilterDesignResults()
{
    viewResult_->clearDisplay();
    refreshAnalysis();
}

void GVRWinFilterDesign::plotMagnitudeAndPhaseWithArray(const std::vector<double>& array)
{
    dBmagAndPhaseArray_ = array;
    refreshComparison();
    selectChartTypePopUpBut();
    refreshAnalysis();
}

void GVRWinFilterDesign::clearFilterDesignParameters()
{
    filterLengthStepper_->setValue(kLengthMin);
    for (GVRNumberField* field :
         {thetaSamplingField_, thetaCutoffField_, thetaCenterField_, betaUpsilonField_})
        field->clear();
}

void GVRWinFilterDesign::restoreFilterParameters(const QVariantMap& parameters)
{
    if (parameters.size() != 9)
        return;
    selectIndex(unitsPopUp_, parameters.value(KEYFP_UNITS));
    previousUnitsSelected_ = unitsPopUp_->currentIndex();
    selectIndex(filterTypePopUp_, parameters.value(KEYFP_FILTER_TYPE));
    thetaSamplingField_->setDoubleValue(parameters.value(KEYFP_SAMPLING_FREQ).toDouble());
    thetaCutoffField_->setDoubleValue(parameters.value(KEYFP_CUTOFF_FREQ).toDouble());
    thetaCenterField_->setDoubleValue(parameters.value(KEYFP_CENTER_FREQ).toDouble());
    selectIndex(bitWidthPopUp_, parameters.value(KEYFP_FILTER_WIDTH));
    selectIndex(windowTypePopUp_, parameters.value(KEYFP_WINDOW_TYPE));
    betaUpsilonField_->setDoubleValue(parameters.value(KEYFP_BETA_UPSILON).toDouble());
    // A length outside the stepper's odd steps (a damaged file) goes to the nearest one.
    const double length = parameters.value(KEYFP_FILTER_LENGTH).toDouble();
    int taps = std::isfinite(length)
                   ? int(std::clamp(std::round(length), double(kLengthMin), double(kLengthMax)))
                   : kLengthMin;
    if (taps % 2 == 0)
        taps += taps < kLengthMax ? 1 : -1;
    filterLengthStepper_->setValue(taps);
    updateUnitsAndHiddenFields();
}
