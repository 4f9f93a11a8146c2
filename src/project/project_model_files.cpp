// Saving and opening ".orvana" project files from the project model.
#include "project/project_model.h"

#include "shell/design_library.h"
#include "shell/library_design_source.h"

GVRProjectModel::GVRProjectModel(const DesignSource* library) : library_(library) {}

GVRProjectModel::~GVRProjectModel() = default;

void GVRProjectModel::setLibrary(DesignLibrary* library)
{
    designLibrary_ = library;
    if (library && (!library_ || library_ == ownSource_.get())) {
        ownSource_ = std::make_unique<LibraryDesignSource>(*library);
        library_ = ownSource_.get();
    }
}

bool GVRProjectModel::saveProjectWithFilePath(const QString&)
{
    lastFileError_ = QStringLiteral("Not available yet.");
    return false;
}

bool GVRProjectModel::openProjectWithFilePath(const QString&)
{
    lastFileError_ = QStringLiteral("Not available yet.");
    return false;
}
