// Saving and opening ".orvana" project files from the project model.
#include "project/project_model.h"

#include "archive/project_archive.h"
#include "project/project_keys.h"
#include "project/project_view.h"
#include "library/design_file_io.h"
#include "library/design_library.h"
#include "library/library_design_source.h"

GVRProjectModel::GVRProjectModel(DesignLibrary& library)
    : designLibrary_(library), ownSource_(std::make_unique<LibraryDesignSource>(library)),
      library_(ownSource_.get())
{
}

GVRProjectModel::~GVRProjectModel() = default;

void GVRProjectModel::setDesignSource(const DesignSource* source)
{
    library_ = source ? source : ownSource_.get();
}

bool GVRProjectModel::saveProjectWithFilePath(const QString& path)
{
    lastFileError_.clear();
    if (!validResultsFlag_) {
        lastFileError_ = QStringLiteral("There is no project design to save: design the project first.");
        return false;
    }
    // The parameters that made the results on screen, not those of a design
    // refused since.
    const GVRProject& record = designed_;
    if (path.isEmpty()) {
        lastFileError_ = QStringLiteral("A project needs a name to be saved.");
        return false;
    }
    return writeProjectFile(path, record, &lastFileError_);
}

bool GVRProjectModel::openProjectWithFilePath(const QString& path)
{
    lastFileError_.clear();
    if (path.isEmpty()) {
        lastFileError_ = QStringLiteral("No project file was named.");
        return false;
    }
    const std::optional<GVRProject> record = readProjectFile(path, &lastFileError_);
    if (!record)
        return false;

    QVariantMap restored;
    auto putNumber = [&restored](QLatin1String key, const std::optional<std::int64_t>& value) {
        if (value)
            restored.insert(key, static_cast<qlonglong>(*value));
    };
    auto putName = [&restored](QLatin1String key, const std::optional<std::string>& value) {
        if (value)
            restored.insert(key, QString::fromStdString(*value));
    };
    putNumber(KEYMOD_BLOCK_DIAGRAM, record->blockDiagramNumber);
    putName(KEYMOD_FILTER_NAME, record->filterName);
    putName(KEYMOD_SIG_ONE_NAME, record->signalOneName);
    putNumber(KEYMOD_SIG_ONE_SIGN, record->signalOneSign);
    putName(KEYMOD_SIG_TWO_NAME, record->signalTwoName);
    putNumber(KEYMOD_SIG_TWO_SIGN, record->signalTwoSign);
    putNumber(KEYMOD_MULTIRATE_L, record->multirateL);
    putNumber(KEYMOD_MULTIRATE_M, record->multirateM);
    putNumber(KEYMOD_MULTIRATE_FILT, record->multirateFilterType);
    if (restored.size() != 9) {
        lastFileError_ =
            QStringLiteral("The project file \"%1\" is incomplete and cannot be opened.").arg(path);
        return false;
    }

    // Every design the project names must still be in the library, the filter
    // too when the project uses the automatic one. Names compare exactly.
    const QStringList filterNames = library_->filterNames();
    const QStringList signalNames = library_->signalNames();
    const QString filter = restored.value(KEYMOD_FILTER_NAME).toString();
    const QString one = restored.value(KEYMOD_SIG_ONE_NAME).toString();
    const QString two = restored.value(KEYMOD_SIG_TWO_NAME).toString();
    QStringList missing;
    if (!filterNames.contains(filter, Qt::CaseSensitive))
        missing << QStringLiteral("filter \"%1\"").arg(filter);
    if (!signalNames.contains(one, Qt::CaseSensitive))
        missing << QStringLiteral("signal \"%1\"").arg(one);
    if (!signalNames.contains(two, Qt::CaseSensitive) &&
        !missing.contains(QStringLiteral("signal \"%1\"").arg(two)))
        missing << QStringLiteral("signal \"%1\"").arg(two);
    if (!missing.isEmpty()) {
        lastFileError_ =
            QStringLiteral("The project file \"%1\" names designs that are not in the library: %2.")
                .arg(path, missing.join(QStringLiteral(", ")));
        return false;
    }
    projectRestorationDictionary_ = restored;
    if (winProject_)
        winProject_->restoreProjectParameters(projectRestorationDictionary_);
    return true;
}
