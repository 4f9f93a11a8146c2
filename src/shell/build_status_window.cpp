#include "shell/build_status_window.h"

#include <QLabel>
#include <QVBoxLayout>

BuildStatusWindow::BuildStatusWindow(QWidget* parent) : QWidget(parent)
{
    setWindowTitle(tr("Orvana"));
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr(
        "<h2>Orvana</h2>"
        "<p>This build holds the headless design core. Use <code>orvana-cli</code> "
        "to design filters from the command line:</p>"
        "<pre>orvana-cli filter --units norm --type lowpass --cutoff 0.25 --taps 51 --window hann</pre>"
        "<p>The designer windows are not part of this build yet.</p>"));
    label->setTextFormat(Qt::RichText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(label);
}
