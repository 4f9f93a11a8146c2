// The formula panel of the signal design window: the chosen signal function
// as three aligned lines of text.
#pragma once

#include <QFont>
#include <QList>
#include <QStringList>
#include <QWidget>

class GVRViewFuncSignalDesign : public QWidget {
    Q_OBJECT
public:
    explicit GVRViewFuncSignalDesign(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    int functionIndex() const { return functionIndex_; }
    // The three lines the next pass draws.
    QStringList shownLines() const;

public slots:
    // index: the signal function, 0 to 10. Redraws.
    void newFunctionWithIndex(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<QStringList> functionDefinitions_;
    int functionIndex_ = 0;
    QFont textFont_;
};
