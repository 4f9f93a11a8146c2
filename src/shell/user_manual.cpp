// Converting the built-in manual to a page the browser can show.
#include "shell/user_manual.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTextDocument>

#include "archive/atomic_write.h"

namespace {

const char kResourcePath[] = ":/manual/user-manual.md";
const char kPageName[] = "OrvanaUserManual.html";
const char kImagesPath[] = ":/manual/images";

QString tr(const char* text)
{
    return QCoreApplication::translate("UserManual", text);
}

} // namespace

QString userManualMarkdown()
{
    QFile file(QString::fromLatin1(kResourcePath));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

QString userManualCacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/manual");
}

QString writeUserManualHtml(const QString& folder, QString* error)
{
    auto fail = [error](const QString& why) {
        if (error)
            *error = why;
        return QString();
    };
    const QString markdown = userManualMarkdown();
    if (markdown.isEmpty())
        return fail(tr("The user manual is missing from this build of Orvana."));
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return fail(tr("The folder \"%1\" for the user manual could not be made.").arg(folder));

    QTextDocument document;
    document.setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
    document.setMetaInformation(QTextDocument::DocumentTitle, tr("Orvana User Manual"));
    const QString path = QDir(folder).filePath(QString::fromLatin1(kPageName));
    QString writeError;
    // The pictures go first, so the page never points at a missing one.
    const QDir images(QString::fromLatin1(kImagesPath));
    if (!images.isEmpty() && !QDir().mkpath(QDir(folder).filePath(QStringLiteral("images"))))
        return fail(tr("The folder \"%1\" for the user manual could not be made.").arg(folder));
    for (const QString& name : images.entryList(QDir::Files)) {
        QFile image(images.filePath(name));
        if (!image.open(QIODevice::ReadOnly) ||
            !writeFileAtomically(QDir(folder).filePath(QStringLiteral("images/") + name), image.readAll(),
                                 &writeError))
            return fail(writeError);
    }
    if (!writeFileAtomically(path, document.toHtml().toUtf8(), &writeError))
        return fail(writeError);
    if (error)
        error->clear();
    return path;
}
