// One row of an open sheet's table: a design file's name and its
// modification date, both as the text the table shows.
#pragma once

#include <utility>

#include <QString>

class GVRFile {
public:
    GVRFile() = default;
    GVRFile(QString fileName, QString fileDate)
        : fileName_(std::move(fileName)), fileDate_(std::move(fileDate))
    {
    }

    // Name as listed in the folder, extension included ("lp300fc25.filt").
    const QString& fileName() const { return fileName_; }
    void setFileName(const QString& name) { fileName_ = name; }

    // Modification date formatted like "Mar 5, 2010, 4:07 PM".
    const QString& fileDate() const { return fileDate_; }
    void setFileDate(const QString& date) { fileDate_ = date; }

    // Field by key name ("fileName", "fileDate"); empty for any other key.
    QString value(const QString& key) const
    {
        if (key == QLatin1String("fileName"))
            return fileName_;
        if (key == QLatin1String("fileDate"))
            return fileDate_;
        return {};
    }

    friend bool operator==(const GVRFile&, const GVRFile&) = default;

private:
    QString fileName_;
    QString fileDate_;
};
