// The per-user design library: a root folder with one sub-folder per kind of
// design, the paths of design files in it, their listings, the seeding with
// sample designs, and the announcements of newly saved filters and signals.
// One object per process, shared by the models and the windows.
#pragma once

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class DesignLibrary : public QObject {
    Q_OBJECT

public:
    enum class Folder { Filter, Signal, ProjectOne, ProjectTwo };

    struct FolderProblem {
        QString path;     // the folder that is missing
        QString message;  // a sentence saying why
    };

    struct LibraryFile {
        QString fileName;  // with extension, no folder
        QDateTime modified;
    };

    struct SeedReport {
        QStringList copied;  // "filter/lp300fc25.filt"
        QStringList kept;    // a file of that name was already there
        QStringList problems;
    };

    explicit DesignLibrary(const QString& root, QObject* parent = nullptr);

    // The object the program's models and windows share; null until set.
    static DesignLibrary* shared();
    static void setShared(DesignLibrary* library);

    QString root() const { return root_; }

    static QList<Folder> folders();
    // "filter", "signal", "projectOne", "projectTwo".
    static QString folderName(Folder folder);
    // ".filt", ".signal", ".orvana".
    static QString extension(Folder folder);

    QString folderPath(Folder folder) const;
    QString filterFolder() const { return folderPath(Folder::Filter); }
    QString signalFolder() const { return folderPath(Folder::Signal); }
    QString projectOneFolder() const { return folderPath(Folder::ProjectOne); }
    QString projectTwoFolder() const { return folderPath(Folder::ProjectTwo); }
    // Folder of a block diagram's projects: 1 projectOne, 2 projectTwo; empty otherwise.
    QString projectFolder(int blockDiagram) const;

    // Folder + "/" + name + extension; the name is used as given.
    QString designPath(Folder folder, const QString& name) const;
    QString filterPath(const QString& name) const { return designPath(Folder::Filter, name); }
    QString signalPath(const QString& name) const { return designPath(Folder::Signal, name); }
    QString projectPath(int blockDiagram, const QString& name) const;

    // Creates the root and the four folders where missing. Something that is
    // not a folder in the way is left alone and reported; so is a folder that
    // cannot be made. Empty when every folder is there.
    QList<FolderProblem> ensureFolders() const;

    // Files of a folder with its extension (case-sensitive), in the order
    // the file system lists them; empty when the folder is missing.
    QList<LibraryFile> files(Folder folder) const;
    // Their names without the extension, in the same order.
    QStringList designNames(Folder folder) const;

    // Copies the sample designs of `sampleFolder` (laid out like the library:
    // sampleFolder/filter/*.filt and so on) into the library. A file the user
    // already has under the same name is kept, never overwritten.
    SeedReport seedSamples(const QString& sampleFolder) const;

    // Tell every listener that a filter or signal file was saved.
    void announceNewFilterFile();
    void announceNewSignalFile();

signals:
    void newFilterFile();
    void newSignalFile();

private:
    QString root_;
};
