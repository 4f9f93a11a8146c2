// The three designers' file command particulars.
#include "widgets/design_file_kind.h"

#include <QCoreApplication>

DesignFileKind DesignFileKind::filter(std::function<QString()> folder)
{
    DesignFileKind kind;
    kind.folder = std::move(folder);
    kind.windowKind = [] { return QCoreApplication::translate("DesignFileKind", "Filter Designer"); };
    kind.extension = QStringLiteral(".filt");
    kind.replaceInformativeText =
        QCoreApplication::translate("DesignFileKind", "A Filter file with the same name already exists. "
                                                      "Replacing it will delete the original Filter design.");
    kind.overwriteInformativeText = QCoreApplication::translate(
        "DesignFileKind",
        "This Filter design has already been saved. Overwriting it will change the original Filter design.");
    return kind;
}

DesignFileKind DesignFileKind::signal(std::function<QString()> folder)
{
    DesignFileKind kind;
    kind.folder = std::move(folder);
    kind.windowKind = [] { return QCoreApplication::translate("DesignFileKind", "Signal Designer"); };
    kind.extension = QStringLiteral(".signal");
    kind.replaceInformativeText =
        QCoreApplication::translate("DesignFileKind", "A Signal file with the same name already exists. "
                                                      "Replacing it will delete the original Signal design.");
    kind.overwriteInformativeText = QCoreApplication::translate(
        "DesignFileKind",
        "This Signal design has already been saved. Overwriting it will change the original Signal design.");
    return kind;
}

DesignFileKind DesignFileKind::project(std::function<QString()> folder)
{
    DesignFileKind kind;
    kind.folder = std::move(folder);
    kind.extension = QStringLiteral(".orvana");
    kind.replaceInformativeText =
        QCoreApplication::translate("DesignFileKind", "A Model file with the same name already exists. "
                                                      "Replacing it will delete the original Model design.");
    kind.overwriteInformativeText = QCoreApplication::translate(
        "DesignFileKind",
        "This Model design has already been saved. Overwriting it will change the original Model design.");
    kind.alertOnFailedOpen = true;
    kind.saveNeedsName = true;
    return kind;
}
