// The recent-designs list in the settings store.
#include "shell/recent_files.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace {
const char kKey[] = "recentFiles";
}

RecentFiles::RecentFiles(QSettings* settings, QObject* parent)
    : QObject(parent), settings_(settings ? settings : new QSettings), ownsSettings_(!settings)
{
}

RecentFiles::~RecentFiles()
{
    if (ownsSettings_)
        delete settings_;
}

QStringList RecentFiles::paths() const
{
    QStringList paths = settings_->value(QLatin1String(kKey)).toStringList();
    paths.removeAll(QString());
    paths.removeDuplicates();
    return paths.mid(0, kMaximum);
}

void RecentFiles::add(const QString& path)
{
    if (path.isEmpty())
        return;
    const QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QStringList list = paths();
    list.removeAll(clean);
    list.prepend(clean);
    store(list.mid(0, kMaximum));
}

void RecentFiles::remove(const QString& path)
{
    QStringList list = paths();
    if (list.removeAll(QDir::cleanPath(path)) > 0)
        store(list);
}

void RecentFiles::clear()
{
    store({});
}

void RecentFiles::store(const QStringList& paths)
{
    if (paths.isEmpty())
        settings_->remove(QLatin1String(kKey));
    else
        settings_->setValue(QLatin1String(kKey), paths);
    emit changed();
}
