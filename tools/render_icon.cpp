// Build step: renders the program's SVG icon to PNG files of the sizes the
// desktop's icon theme wants, with Qt's SVG renderer.
#include <cstdio>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char* argv[])
{
    if (argc < 4 || (argc - 2) % 2 != 0) {
        std::fprintf(stderr, "usage: orvana-render-icon ICON.svg SIZE OUT.png [SIZE OUT.png...]\n");
        return 2;
    }
    QGuiApplication app(argc, argv);
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "orvana-render-icon: cannot read %s\n", argv[1]);
        return 1;
    }
    for (int i = 2; i + 1 < argc; i += 2) {
        const int size = QString::fromLatin1(argv[i]).toInt();
        if (size < 16 || size > 1024) {
            std::fprintf(stderr, "orvana-render-icon: bad size %s\n", argv[i]);
            return 2;
        }
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
        painter.end();
        if (!image.save(QString::fromLocal8Bit(argv[i + 1]), "PNG")) {
            std::fprintf(stderr, "orvana-render-icon: cannot write %s\n", argv[i + 1]);
            return 1;
        }
    }
    return 0;
}
