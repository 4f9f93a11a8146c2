// The per-user design library: the root folder and its four design folders,
// the paths of design files, folder listings, the sample designs copied in at
// every launch, and the announcements of newly saved filter and signal files.
// The main program makes one and hands it to every model and window it makes;
// there is no process-wide fallback, so a model cannot write to a library it
// was not given.
#pragma once

#include <array>

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

// One design file of a library folder.
struct DesignFileEntry {
    QString fileName; // with extension, no folder
    QDateTime modified;
};

// Something that kept a folder from being made or a sample from being copied.
struct LibraryProblem {
    QString path;
    QString message; // a whole sentence for the user
};

// What seedSamples() did with each sample design (file names, no folder).
struct SeedReport {
    QStringList copied;
    QStringList kept;     // a design of that name was already there and is left alone
    QStringList replaced; // an empty, unreadable or cut-short copy was replaced
    QStringList missing;  // not in the sample folder
    QList<LibraryProblem> problems;
};

class DesignLibrary : public QObject {
    Q_OBJECT
public:
    enum class Folder { Filter, Signal, ProjectOne, ProjectTwo };
    static constexpr std::array<Folder, 4> kFolders{Folder::Filter, Folder::Signal, Folder::ProjectOne,
                                                    Folder::ProjectTwo};

    struct Sample {
        Folder folder;
        const char* fileName;
    };
    // The thirteen sample designs, per destination in copying order.
    static constexpr std::array<Sample, 13> kSamples{{
        {Folder::Signal, "Cos10M3Fs300.signal"},
        {Folder::Signal, "Cos1MHz.signal"},
        {Folder::Signal, "NoisyCosine3MHz.signal"},
        {Folder::Signal, "Mixer25MHz5MHz.signal"},
        {Folder::Signal, "Cos35Fs300.signal"},
        {Folder::Filter, "bpNormFcp5Fcutp025.filt"},
        {Folder::Filter, "lp20fc2cheby4.filt"},
        {Folder::Filter, "hp20fc5cheby3p5.filt"},
        {Folder::Filter, "bp50fc3fcntr15.filt"},
        {Folder::Filter, "lp300fc25.filt"},
        {Folder::Filter, "lpNormfcp333.filt"},
        {Folder::ProjectOne, "Cos10M3andCos35.orvana"},
        {Folder::ProjectTwo, "multirateUser300to450.orvana"},
    }};

    explicit DesignLibrary(const QString& root, QObject* parent = nullptr);

    QString root() const { return root_; }
    // Moves the library; nothing is created or copied until asked.
    void setRoot(const QString& root);

    // "filter", "signal", "projectOne", "projectTwo".
    static QString folderName(Folder folder);
    // ".filt", ".signal", ".orvana".
    static QString extension(Folder folder);
    // Folder of a project's block diagram: 1 "Sum & Filter Model" -> ProjectOne,
    // anything else -> ProjectTwo.
    static Folder projectFolder(int blockDiagram);

    QString folderPath(Folder folder) const;
    QString filterFolder() const { return folderPath(Folder::Filter); }
    QString signalFolder() const { return folderPath(Folder::Signal); }
    QString projectOneFolder() const { return folderPath(Folder::ProjectOne); }
    QString projectTwoFolder() const { return folderPath(Folder::ProjectTwo); }

    // Folder + "/" + name + extension; the name carries no folder or extension.
    QString designPath(Folder folder, const QString& name) const;
    QString filterPath(const QString& name) const { return designPath(Folder::Filter, name); }
    QString signalPath(const QString& name) const { return designPath(Folder::Signal, name); }
    QString projectPath(int blockDiagram, const QString& name) const
    {
        return designPath(projectFolder(blockDiagram), name);
    }

    // Makes the root (with any missing parents) and the four folders where
    // nothing is. Something else in a folder's place (a plain file) is left
    // alone and reported; so is a folder that cannot be made. When the root
    // itself fails, that one problem is all that is reported. Empty when every
    // folder is there.
    QList<LibraryProblem> ensureFolders() const;

    // Files of a folder with its extension (case-sensitive, hidden ones too),
    // in natural order (case-insensitive, digit runs as numbers); empty when
    // the folder is missing.
    QList<DesignFileEntry> files(Folder folder) const;
    // The same files' design names (without the extension), same order.
    QStringList designNames(Folder folder) const;
    // The same files' names (with the extension) in the order of files(),
    // without their dates: a folder of thousands lists in a fraction of the time.
    QStringList fileNames(Folder folder) const;

    // Copies the sample designs found in `sampleFolder` (the thirteen files
    // side by side) into their folders, never replacing a design already
    // there: the copy runs at every launch and the user may have changed a
    // sample. A sample-named file that is empty, unreadable or the sample cut
    // short is no one's work (a copy a full disk failed) and is replaced.
    // Each copy is written atomically.
    SeedReport seedSamples(const QString& sampleFolder) const;

    // Removes, from the four folders, the temporaries of saves that were
    // interrupted more than ten minutes ago; returns the paths removed.
    QStringList removeStaleTemporaries(const QDateTime& now = QDateTime::currentDateTimeUtc()) const;

    // Tell every listener that a filter or signal file was saved.
    void announceNewFilterFile() { emit newFilterFile(); }
    void announceNewSignalFile() { emit newSignalFile(); }

signals:
    void newFilterFile();
    void newSignalFile();

private:
    QString root_;
};
