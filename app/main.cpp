// The desktop program.
#include <QApplication>

#include "shell/build_status_window.h"

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvana"));
    BuildStatusWindow window;
    window.show();
    return app.exec();
}
