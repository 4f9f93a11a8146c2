// Saving and opening ".signal" design files from the signal designer model.
#include "signal/signal_designer_model.h"

bool GVRSignalDesignerModel::saveSignalDesignWithFileName(const QString&)
{
    lastFileError_ = QStringLiteral("Not available yet.");
    return false;
}

bool GVRSignalDesignerModel::openSignalDesignWithFileName(const QString&)
{
    lastFileError_ = QStringLiteral("Not available yet.");
    return false;
}
