// The project window: form, charts, mode switching and the file commands.
#include "project/project_window.h"

#include <algorithm>
#include <tuple>

#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QFormLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStringListModel>
#include <QSplitter>
#include <QVBoxLayout>

#include "charts/view_block_diagram.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"
#include "widgets/design_file_commands.h"
#include "widgets/design_file_kind.h"
#include "project/project_keys.h"
#include "library/design_library.h"
#include "widgets/window_parts.h"

namespace {

constexpr int kZoomMin = 0;
constexpr int kZoomMax = 8;
constexpr int kZoomStart = 4; // "x16"
constexpr int kRateMin = 1;
constexpr int kRateMax = 10; // the model takes up to 12; the window offers 10

// The zoom stepper shows its level as the magnification title ("x16").
class ZoomSpinBox : public QSpinBox {
public:
    using QSpinBox::QSpinBox;

protected:
    QString textFromValue(int value) const override { return GVRWinProject::zoomLevelsTitle().value(value); }
    int valueFromText(const QString& text) const override
    {
        const int index = GVRWinProject::zoomLevelsTitle().indexOf(text.trimmed());
        return index >= 0 ? index : value();
    }
    QValidator::State validate(QString& text, int&) const override
    {
        const QString t = text.trimmed();
        if (GVRWinProject::zoomLevelsTitle().contains(t))
            return QValidator::Acceptable;
        for (const QString& title : GVRWinProject::zoomLevelsTitle())
            if (title.startsWith(t))
                return QValidator::Intermediate;
        return QValidator::Invalid;
    }
};

QSpinBox* makeStepper(QSpinBox* box, int minimum, int maximum, int value, const char* name)
{
    box->setObjectName(QLatin1String(name));
    box->setRange(minimum, maximum);
    box->setSingleStep(1);
    box->setWrapping(true);
    box->setValue(value);
    box->setAccelerated(false);
    box->setAlignment(Qt::AlignRight);
    return box;
}

QComboBox* makeFixedWidthPopUp(const char* name, QWidget* parent)
{
    auto* popUp = new QComboBox(parent);
    popUp->setObjectName(QLatin1String(name));
    popUp->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    popUp->setMinimumContentsLength(14);
    return popUp;
}

} // namespace

const QStringList& GVRWinProject::zoomLevelsTitle()
{
    static const QStringList titles =
        QStringLiteral("x1,x2,x4,x8,x16,x32,x64,x128,x256").split(QLatin1Char(','));
    return titles;
}

const QStringList& GVRWinProject::graphTitle1()
{
    static const QStringList titles = QStringLiteral("Input: x[n],Output: y[n]").split(QLatin1Char(','));
    return titles;
}

const QStringList& GVRWinProject::graphTitle2()
{
    static const QStringList titles = QStringLiteral("Input: x[n],Output: y[k]").split(QLatin1Char(','));
    return titles;
}

const QStringList& GVRWinProject::signTitle()
{
    static const QStringList titles = QStringLiteral("+1,-1,0").split(QLatin1Char(','));
    return titles;
}

GVRWinProject::GVRWinProject(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), library_(library), projectModel_(library),
      projectDirectory_(library.projectOneFolder())
{
    setObjectName(QStringLiteral("GVRWinProject"));
    projectModel_.setWinProject(this);

    buildControls();

    DesignFileHooks hooks;
    hooks.bringToFront = [this] { showProjectWindow(); };
    hooks.clearForNew = [this] {
        initSteppers();
        noteField_->clear();
        initPopUpsWithMandatoryFlag(true);
        clearCharts();
        // The charts go back to the input, as the Graph pop-up now says, and
        // the model forgets its design: a save now has nothing to write.
        selectGraphPopUpBut(0);
        projectModel_.clearDesign();
    };
    hooks.openDesign = [this](const QString& name) {
        return projectModel_.openProjectWithFilePath(fileCommands_->pathForName(name));
    };
    hooks.saveDesign = [this](const QString& name) {
        return projectModel_.saveProjectWithFilePath(fileCommands_->pathForName(name));
    };
    hooks.redesign = [this] {
        pressDesignBut();
        // A factor the steppers could not hold was limited; say so after the
        // design's own note.
        if (!restoreNote_.isEmpty()) {
            const QString before = noteField_->text();
            displayNoteField(before.isEmpty() ? restoreNote_ : before + QStringLiteral(" — ") + restoreNote_,
                             0.0, false);
            restoreNote_.clear();
        }
    };
    hooks.nothingToSave = [this] {
        return projectModel_.validResultsFlag()
                   ? QString()
                   : tr("There is no project design to save: design the project first.");
    };
    hooks.lastFileError = [this] { return projectModel_.lastFileError(); };
    hooks.showNote = [this](const QString& text) { displayNoteField(text, 0.0, false); };
    DesignFileKind kind = DesignFileKind::project([this] { return projectDirectory_; });
    kind.windowKind = [this] {
        return blockDiagramNumber_ == 1 ? tr("Sum & Filter Model") : tr("Multirate Model");
    };
    fileCommands_ = new DesignFileCommands(this, std::move(kind), std::move(hooks), this);

    // The loading steps: lists, steppers, the automatic filter chosen, tool
    // tips. The design names are listed once the program has painted (or
    // sooner, when something needs them), so a large library never holds up
    // its first paint.
    initPopUpsWithMandatoryFlag(false);
    namesListing_.defer(this, [this] { listDesignNames(); });
    initSteppers();
    autoFilterBut_->setChecked(true);
    updateUnitsAndHiddenFields();
    setToolTips();
    viewBlockDiagram_->newBlockDiagramWithIndex(blockDiagramNumber_);
    connectEdits();

    connect(&library_, &DesignLibrary::newFilterFile, this, &GVRWinProject::handleNewFilterOrSignalFile);
    connect(&library_, &DesignLibrary::newSignalFile, this, &GVRWinProject::handleNewFilterOrSignalFile);
    // Coming back to the program, the pop-ups are read again only when a
    // folder changed: relisting thousands of designs at every activation
    // (the first comes with the first window) held up the first paint.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive && !namesListing_.pending() && designFoldersChanged())
            handleNewFilterOrSignalFile();
    });
}

GVRWinProject::~GVRWinProject()
{
    projectModel_.setWinProject(nullptr);
}

std::optional<QString> GVRWinProject::projectFilename() const
{
    return fileCommands_->currentName();
}

void GVRWinProject::buildControls()
{
    viewProjTime_ = new GVRViewProjTime(this);
    viewProjTime_->setObjectName(QStringLiteral("viewProjTime"));
    viewProjTime_->setTimeSource(this);
    viewProjFreq_ = new GVRViewProjFreq(this);
    viewProjFreq_->setObjectName(QStringLiteral("viewProjFreq"));
    viewProjFreq_->setFreqSource(this);
    viewBlockDiagram_ = new GVRViewBlockDiagram(this);
    viewBlockDiagram_->setObjectName(QStringLiteral("viewBlockDiagram"));
    viewProjTime_->setMinimumSize(320, 120);
    viewProjFreq_->setMinimumSize(320, 120);
    viewBlockDiagram_->setMinimumSize(320, 100);

    auto* charts = new QSplitter(Qt::Vertical, this);
    charts->addWidget(viewBlockDiagram_);
    charts->addWidget(viewProjTime_);
    charts->addWidget(viewProjFreq_);
    charts->setStretchFactor(0, 2);
    charts->setStretchFactor(1, 3);
    charts->setStretchFactor(2, 3);
    charts->setChildrenCollapsible(false);

    QSplitter* split = makeFormAndCharts(buildForm(), charts, this);
    setCentralWidget(split);
    fitToScreen(*this, QSize(1100, 780));
}

QWidget* GVRWinProject::buildForm()
{
    auto* form = new QWidget(this);
    form->setObjectName(QStringLiteral("projectForm"));
    auto* column = new QVBoxLayout(form);

    // Inputs: the two signals and their multipliers.
    auto* inputs = new QGroupBox(tr("Input signals"), form);
    auto* inputGrid = new QFormLayout(inputs);
    signalOnePopUp_ = makeFixedWidthPopUp("signalOnePopUp", inputs);
    signalOneSignPopUp_ = makeFixedWidthPopUp("signalOneSignPopUp", inputs);
    signalOneSignPopUp_->setMinimumContentsLength(3);
    signalTwoPopUp_ = makeFixedWidthPopUp("signalTwoPopUp", inputs);
    signalTwoSignPopUp_ = makeFixedWidthPopUp("signalTwoSignPopUp", inputs);
    // Plain string models, the signal list shared by both pop-ups: a library
    // of thousands of designs fills them in one step each.
    signalNames_ = new QStringListModel(this);
    signalOnePopUp_->setModel(signalNames_);
    signalTwoPopUp_->setModel(signalNames_);
    signalTwoSignPopUp_->setMinimumContentsLength(3);
    auto signalRow = [inputs](QComboBox* name, QComboBox* sign) {
        auto* row = new QWidget(inputs);
        auto* h = new QHBoxLayout(row);
        h->setContentsMargins(0, 0, 0, 0);
        h->addWidget(sign);
        h->addWidget(new QLabel(QStringLiteral("×"), row));
        h->addWidget(name, 1);
        return row;
    };
    inputGrid->addRow(tr("x₁[n]"), signalRow(signalOnePopUp_, signalOneSignPopUp_));
    inputGrid->addRow(tr("x₂[n]"), signalRow(signalTwoPopUp_, signalTwoSignPopUp_));
    column->addWidget(inputs);

    // System: rate factors, filter choice, filter.
    auto* system = new QGroupBox(tr("System"), form);
    auto* systemGrid = new QFormLayout(system);
    multirateLLabel_ = new QLabel(tr("Interpolate L"), system);
    multirateLStepper_ = makeStepper(new QSpinBox(system), kRateMin, kRateMax, 1, "multirateLStepper");
    multirateMLabel_ = new QLabel(tr("Decimate M"), system);
    multirateMStepper_ = makeStepper(new QSpinBox(system), kRateMin, kRateMax, 1, "multirateMStepper");
    systemGrid->addRow(multirateLLabel_, multirateLStepper_);
    systemGrid->addRow(multirateMLabel_, multirateMStepper_);

    autoFilterRow_ = new QWidget(system);
    autoFilterRow_->setObjectName(QStringLiteral("autoFilterGenBut"));
    auto* radios = new QHBoxLayout(autoFilterRow_);
    radios->setContentsMargins(0, 0, 0, 0);
    userFilterBut_ = new QRadioButton(tr("User"), autoFilterRow_);
    userFilterBut_->setObjectName(QStringLiteral("userFilterBut"));
    autoFilterBut_ = new QRadioButton(tr("Automatic"), autoFilterRow_);
    autoFilterBut_->setObjectName(QStringLiteral("autoFilterBut"));
    radios->addWidget(userFilterBut_);
    radios->addWidget(autoFilterBut_);
    radios->addStretch(1);
    autoFilterGenBut_ = new QButtonGroup(this);
    autoFilterGenBut_->addButton(userFilterBut_, UserFilter);
    autoFilterGenBut_->addButton(autoFilterBut_, AutoFilter);
    filterChoiceLabel_ = new QLabel(tr("Filter H[m]"), system);
    systemGrid->addRow(filterChoiceLabel_, autoFilterRow_);

    filterLabel_ = new QLabel(tr("H[n]"), system);
    filterPopUp_ = makeFixedWidthPopUp("filterPopUp", system);
    filterNames_ = new QStringListModel(this);
    filterPopUp_->setModel(filterNames_);
    systemGrid->addRow(filterLabel_, filterPopUp_);
    column->addWidget(system);

    designBut_ = new QPushButton(tr("Design"), form);
    designBut_->setObjectName(QStringLiteral("designBut"));
    designBut_->setDefault(true);
    column->addWidget(designBut_);

    // Display: which record the charts show and the time chart's zoom.
    auto* display = new QGroupBox(tr("Display"), form);
    auto* displayGrid = new QFormLayout(display);
    graphPopUp_ = makeFixedWidthPopUp("graphPopUp", display);
    zoomStepper_ = makeStepper(new ZoomSpinBox(display), kZoomMin, kZoomMax, kZoomStart, "zoomStepper");
    displayGrid->addRow(tr("Graph"), graphPopUp_);
    displayGrid->addRow(tr("Zoom"), zoomStepper_);
    column->addWidget(display);

    column->addStretch(1);
    noteField_ = makeNoteLine(form);
    column->addWidget(noteField_);
    form->setMinimumWidth(300);

    connect(designBut_, &QPushButton::clicked, this, &GVRWinProject::pressDesignBut);
    // Return in L or M designs, as Return does elsewhere.
    for (QSpinBox* stepper : {multirateLStepper_, multirateMStepper_})
        connect(spinBoxEditor(stepper), &QLineEdit::returnPressed, this, &GVRWinProject::pressDesignBut);
    connect(autoFilterGenBut_, &QButtonGroup::idClicked, this, [this](int) { updateUnitsAndHiddenFields(); });
    connect(graphPopUp_, &QComboBox::activated, this, &GVRWinProject::selectGraphPopUpBut);
    connect(zoomStepper_, &QSpinBox::valueChanged, this, &GVRWinProject::pressZoomStepperBut);
    return form;
}

void GVRWinProject::setToolTips()
{
    const QString signalTip = tr("Select a Signal from the Signal Designer");
    signalOnePopUp_->setToolTip(signalTip);
    signalTwoPopUp_->setToolTip(signalTip);
    signalOneSignPopUp_->setToolTip(tr("Multiplier for x₁[n]"));
    signalTwoSignPopUp_->setToolTip(tr("Multiplier for x₂[n]"));
    filterPopUp_->setToolTip(tr("Select a Filter from the Filter Designer"));
    graphPopUp_->setToolTip(tr("Select either System Input or Output Response"));
    const QString autoTip = tr("Option to automatically generate Filter H[m]");
    autoFilterRow_->setToolTip(autoTip);
    userFilterBut_->setToolTip(autoTip);
    autoFilterBut_->setToolTip(autoTip);
    multirateLStepper_->setToolTip(tr("Interpolate x[n] by L"));
    multirateMStepper_->setToolTip(tr("Decimate x[n] by M"));
    zoomStepper_->setToolTip(tr("Magnification of Time Domain Signal"));
}

bool GVRWinProject::windowIsKeyWindow() const
{
    return isActiveWindow();
}

void GVRWinProject::showGVRWinProjectOne()
{
    showInMode(1);
}

void GVRWinProject::showGVRWinProjectTwo()
{
    showInMode(2);
}

void GVRWinProject::showInMode(int mode)
{
    // Showing the window again in its mode (the Window menu, the launch
    // preferences) keeps the project; only a change of model starts afresh,
    // after the usual question when the project was edited.
    if (modeShown_ && mode == blockDiagramNumber_) {
        showProjectWindow();
        return;
    }
    fileCommands_->proceedAfterSaving([this, mode] { switchToMode(mode); });
}

void GVRWinProject::switchToMode(int mode)
{
    modeShown_ = true;
    blockDiagramNumber_ = mode;
    projectDirectory_ = library_.folderPath(DesignLibrary::projectFolder(mode));
    fileCommands_->forgetName();
    showProjectWindow();
    initPopUpsWithMandatoryFlag(true);
    clearCharts();
    viewBlockDiagram_->newBlockDiagramWithIndex(mode);
    graphPopUp_->setCurrentIndex(0);
    selectGraphPopUpBut(0);
    // A design of the other model is not this window's any more.
    projectModel_.clearDesign();
    noteField_->clear();
    fileCommands_->setModified(false);
}

void GVRWinProject::showProjectWindow()
{
    ensureDesignNamesListed();
    show();
    raise();
    activateWindow();
}

void GVRWinProject::clearCharts()
{
    plotFreqWithArray({});
    plotTimeWithArray({});
}

void GVRWinProject::setGraphTitles()
{
    graphPopUp_->clear();
    graphPopUp_->addItems(blockDiagramNumber_ == 1 ? graphTitle1() : graphTitle2());
    if (blockDiagramNumber_ != 1)
        graphPopUp_->addItems(stageGraphTitles());
    graphPopUp_->setCurrentIndex(0);
}

void GVRWinProject::initPopUpsWithMandatoryFlag(bool mandatory)
{
    if (graphPopUp_->count() >= 2 && !mandatory)
        return;
    // At construction the names wait for ensureDesignNamesListed().
    if (mandatory)
        listDesignNames();
    setGraphTitles();
    for (QComboBox* popUp : {signalOneSignPopUp_, signalTwoSignPopUp_}) {
        popUp->clear();
        popUp->addItems(signTitle());
        popUp->setCurrentIndex(0);
    }
    updateUnitsAndHiddenFields();
    fileCommands_->refreshTitle();
}

void GVRWinProject::listDesignNames()
{
    namesListing_.cancel();
    // Taken before listing: a change made while listing shows as a change.
    listedFolders_ = {fileIdentity(library_.filterFolder()), fileIdentity(library_.signalFolder()),
                      QDateTime::currentMSecsSinceEpoch() * 1000000LL};
    filterNames_->setStringList(library_.designNames(DesignLibrary::Folder::Filter));
    filterPopUp_->setCurrentIndex(filterPopUp_->count() > 0 ? 0 : -1);
    signalNames_->setStringList(library_.designNames(DesignLibrary::Folder::Signal));
    for (QComboBox* popUp : {signalOnePopUp_, signalTwoPopUp_})
        popUp->setCurrentIndex(popUp->count() > 0 ? 0 : -1);
}

void GVRWinProject::ensureDesignNamesListed()
{
    namesListing_.runNow();
}

void GVRWinProject::updateUnitsAndHiddenFields()
{
    const bool multirate = blockDiagramNumber_ != 1;
    for (QWidget* w : std::initializer_list<QWidget*>{multirateLLabel_, multirateMLabel_, multirateLStepper_,
                                                      multirateMStepper_, autoFilterRow_, filterChoiceLabel_})
        w->setVisible(multirate);
    const bool showFilter = !multirate || autoFilterGenBut_->checkedId() != AutoFilter;
    filterPopUp_->setVisible(showFilter);
    filterLabel_->setVisible(showFilter);
    filterLabel_->setText(multirate ? tr("H[m]") : tr("H[n]"));
}

void GVRWinProject::initSteppers()
{
    zoomStepper_->setValue(kZoomStart);
    multirateLStepper_->setValue(1);
    multirateMStepper_->setValue(1);
}

void GVRWinProject::pressZoomStepperBut(int value)
{
    viewProjTime_->setZoomLevel(1 << value);
}

void GVRWinProject::pressDesignBut()
{
    ensureDesignNamesListed();
    // The three names are empty when their lists are; the model then does nothing.
    projectParameterDictionary_ = GVRProjectModel::parameterDictionary(
        blockDiagramNumber_, filterPopUp_->currentText(), signalOnePopUp_->currentText(),
        signalTwoPopUp_->currentText(), signalOneSignPopUp_->currentIndex(),
        signalTwoSignPopUp_->currentIndex(), multirateLStepper_->value(), multirateMStepper_->value(),
        autoFilterGenBut_->checkedId() == AutoFilter ? AutoFilter : UserFilter);
    if (projectParameterDictionary_.size() == 9 &&
        projectModel_.designProjectWithParameters(projectParameterDictionary_) != DesignOutcome::Refused)
        fileCommands_->setModified(true);
}

void GVRWinProject::displayNoteField(const QString& text, double value, bool withValue)
{
    showNote(*noteField_, text, value, withValue);
}

void GVRWinProject::plotTimeWithArray(const std::vector<double>& timeArray)
{
    timeArray_ = timeArray;
    // The model hands the time array first: the stage follows the new design.
    if (shownStage_ != 0)
        refreshStageArrays();
    viewProjTime_->newTimeDomainChart();
}

void GVRWinProject::plotFreqWithArray(const std::vector<double>& freqArray)
{
    freqArray_ = freqArray;
    viewProjFreq_->newFreqDomainChart();
}

void GVRWinProject::selectTitle(QComboBox* popUp, const QString& title)
{
    const int index = popUp->findText(title, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        popUp->setCurrentIndex(index);
}

void GVRWinProject::restoreProjectParameters(const QVariantMap& parameters)
{
    ensureDesignNamesListed();
    if (parameters.size() != 9)
        return;
    selectTitle(filterPopUp_, parameters.value(KEYMOD_FILTER_NAME).toString());
    selectTitle(signalOnePopUp_, parameters.value(KEYMOD_SIG_ONE_NAME).toString());
    selectTitle(signalTwoPopUp_, parameters.value(KEYMOD_SIG_TWO_NAME).toString());
    auto selectIndex = [](QComboBox* popUp, const QVariant& value) {
        const int index = value.toInt();
        if (index >= 0 && index < popUp->count())
            popUp->setCurrentIndex(index);
    };
    selectIndex(signalOneSignPopUp_, parameters.value(KEYMOD_SIG_ONE_SIGN));
    selectIndex(signalTwoSignPopUp_, parameters.value(KEYMOD_SIG_TWO_SIGN));
    // A factor beyond the steppers (the CLI takes up to 12) is clamped, not
    // wrapped by the stepper, and the note line says so after the design.
    restoreNote_.clear();
    for (auto [stepper, key, symbol] : {std::tuple{multirateLStepper_, KEYMOD_MULTIRATE_L, "L"},
                                        std::tuple{multirateMStepper_, KEYMOD_MULTIRATE_M, "M"}}) {
        const int stored = parameters.value(key).toInt();
        const int shown = std::clamp(stored, stepper->minimum(), stepper->maximum());
        stepper->setValue(shown);
        if (shown != stored)
            restoreNote_ +=
                (restoreNote_.isEmpty() ? QString() : QStringLiteral("; ")) +
                tr("%1 = %2 in the file was limited to %3").arg(QLatin1String(symbol)).arg(stored).arg(shown);
    }
    if (parameters.value(KEYMOD_MULTIRATE_FILT).toInt() == UserFilter)
        userFilterBut_->setChecked(true);
    else
        autoFilterBut_->setChecked(true);

    const int mode = parameters.value(KEYMOD_BLOCK_DIAGRAM).toInt() == 1 ? 1 : 2;
    if (mode != blockDiagramNumber_) {
        // The graph list follows the diagram so its titles name the right output,
        // and later saves go to the folder of this model.
        blockDiagramNumber_ = mode;
        projectDirectory_ = library_.folderPath(DesignLibrary::projectFolder(mode));
        setGraphTitles();
        selectGraphPopUpBut(0);
    }
    viewBlockDiagram_->newBlockDiagramWithIndex(blockDiagramNumber_);
    updateUnitsAndHiddenFields();
}

bool GVRWinProject::designFoldersChanged() const
{
    const FolderStamp& was = listedFolders_;
    if (!was.filters || !was.signalFolder || was.filters != fileIdentity(library_.filterFolder()) ||
        was.signalFolder != fileIdentity(library_.signalFolder()))
        return true;
    // A folder changed within the clock's resolution of the listing may keep
    // its time: only a folder older than that is known to be unchanged.
    constexpr long long kRacyNs = 2'000'000'000LL;
    return std::max(was.filters->modifiedNs, was.signalFolder->modifiedNs) >= was.takenNs - kRacyNs;
}

void GVRWinProject::handleNewFilterOrSignalFile()
{
    const QString signalOne = signalOnePopUp_->currentText();
    const QString signalTwo = signalTwoPopUp_->currentText();
    const QString filter = filterPopUp_->currentText();
    const int signOne = signalOneSignPopUp_->currentIndex();
    const int signTwo = signalTwoSignPopUp_->currentIndex();
    const int graph = graphPopUp_->currentIndex();

    initPopUpsWithMandatoryFlag(true);

    selectTitle(signalOnePopUp_, signalOne);
    selectTitle(signalTwoPopUp_, signalTwo);
    selectTitle(filterPopUp_, filter);
    signalOneSignPopUp_->setCurrentIndex(signOne);
    signalTwoSignPopUp_->setCurrentIndex(signTwo);
    graphPopUp_->setCurrentIndex(graph);
}

void GVRWinProject::connectEdits()
{
    // Choices the design reads mark the project changed since its last save or open.
    auto edited = [this] { fileCommands_->setModified(true); };
    for (QComboBox* popUp :
         {signalOnePopUp_, signalTwoPopUp_, signalOneSignPopUp_, signalTwoSignPopUp_, filterPopUp_})
        connect(popUp, &QComboBox::activated, this, edited);
    for (QSpinBox* stepper : {multirateLStepper_, multirateMStepper_})
        connect(stepper, &QSpinBox::valueChanged, this, edited);
    connect(autoFilterGenBut_, &QButtonGroup::idClicked, this, edited);
}

void GVRWinProject::closeEvent(QCloseEvent* event)
{
    if (fileCommands_->mayClose())
        event->accept();
    else
        event->ignore();
}

void GVRWinProject::newMenuItem()
{
    fileCommands_->newMenuItem();
}

void GVRWinProject::openMenuItem()
{
    fileCommands_->openMenuItem();
}

void GVRWinProject::saveMenuItem()
{
    fileCommands_->saveMenuItem();
}

void GVRWinProject::saveAsMenuItem()
{
    fileCommands_->saveAsMenuItem();
}
