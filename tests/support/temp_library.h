// A throw-away design library folder for one test.
#pragma once

#include <QString>
#include <QTemporaryDir>

class TempLibrary {
public:
    TempLibrary();
    QString root() const { return dir_.path(); }
    // root()/sub, created if missing.
    QString folder(const QString& sub) const;

private:
    QTemporaryDir dir_;
};
