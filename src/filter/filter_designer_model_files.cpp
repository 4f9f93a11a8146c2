// Saving and opening ".filt" design files from the filter designer model.
#include "filter/filter_designer_model.h"

bool GVRFilterDesignerModel::saveFilterDesignWithFileName(const QString&)
{
    lastFileError_ = QStringLiteral("Not available yet.");
    return false;
}

bool GVRFilterDesignerModel::openFilterDesignWithFileName(const QString&)
{
    lastFileError_ = QStringLiteral("Not available yet.");
    return false;
}
