// A plain window listing what the program can already do. Shown until the
// designer windows take over start-up.
#pragma once

#include <QWidget>

class BuildStatusWindow : public QWidget {
    Q_OBJECT
public:
    explicit BuildStatusWindow(QWidget* parent = nullptr);
};
