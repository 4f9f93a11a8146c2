// The recent designs: the last ten design files opened or saved in any
// designer, newest first, kept in the settings store so they outlive the
// session. File ▸ Open Recent lists them.
#pragma once

#include <QObject>
#include <QStringList>

class QSettings;

class RecentFiles : public QObject {
    Q_OBJECT
public:
    static constexpr int kMaximum = 10;

    // `settings` null: the application's own store; otherwise it must outlive this object.
    explicit RecentFiles(QSettings* settings = nullptr, QObject* parent = nullptr);
    ~RecentFiles() override;

    // Newest first, each path once (absolute, cleaned).
    QStringList paths() const;
    // Puts `path` first, dropping an older mention and anything past the tenth.
    void add(const QString& path);
    void remove(const QString& path);
    void clear();

signals:
    void changed();

private:
    void store(const QStringList& paths);

    QSettings* settings_;
    bool ownsSettings_;
};
