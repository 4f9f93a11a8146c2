// Compare… in the filter designer: up to three saved filters chosen from a
// window-modal list, their magnitude responses overlaid on the current
// design's magnitude chart with a legend. Designs in other units than the
// current one are drawn against normalised frequency (the same fraction of
// the axis), as their frequencies cannot be set against it.
#include "filter/filter_design_window.h"

#include <algorithm>

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "charts/view_filt_design.h"
#include "library/design_library.h"
#include "library/library_design_source.h"
#include "widgets/design_file_commands.h"

QWidget* GVRWinFilterDesign::buildCompareRow(QWidget* parent)
{
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    compareBut_ = new QPushButton(tr("Compare…"), row);
    compareBut_->setObjectName(QStringLiteral("compareBut"));
    compareBut_->setToolTip(tr("Overlay up to three saved filters on the magnitude chart"));
    clearComparisonBut_ = new QPushButton(tr("Clear Comparison"), row);
    clearComparisonBut_->setObjectName(QStringLiteral("clearComparisonBut"));
    clearComparisonBut_->setEnabled(false);
    layout->addWidget(compareBut_);
    layout->addWidget(clearComparisonBut_);
    connect(compareBut_, &QPushButton::clicked, this, &GVRWinFilterDesign::pressCompareBut);
    connect(clearComparisonBut_, &QPushButton::clicked, this, &GVRWinFilterDesign::clearComparison);
    return row;
}

void GVRWinFilterDesign::pressCompareBut()
{
    auto* dialog = new QDialog(this);
    dialog->setObjectName(QStringLiteral("compareDialog"));
    dialog->setWindowTitle(tr("Compare"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    auto* column = new QVBoxLayout(dialog);
    column->addWidget(new QLabel(tr("Choose up to three saved filters to overlay on the magnitude chart.\n"
                                    "Choose none to clear the comparison."),
                                 dialog));
    auto* list = new QListWidget(dialog);
    list->setObjectName(QStringLiteral("compareList"));
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    list->addItems(filterDesignModel_.library().designNames(DesignLibrary::Folder::Filter));
    for (const ComparedFilter& f : compared_)
        for (QListWidgetItem* item : list->findItems(f.name, Qt::MatchExactly))
            item->setSelected(true);
    // A fourth choice takes back the one just made.
    connect(list, &QListWidget::itemSelectionChanged, list, [list] {
        if (list->selectedItems().size() > kMaxComparedFilters && list->currentItem())
            list->currentItem()->setSelected(false);
    });
    column->addWidget(list, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    connect(dialog, &QDialog::accepted, this, [this, list] {
        QStringList chosen;
        // In the list's order, so the legend reads as the list does.
        for (int i = 0; i < list->count(); ++i)
            if (list->item(i)->isSelected())
                chosen << list->item(i)->text();
        setComparedDesigns(chosen);
    });
    dialog->resize(360, 420);
    dialog->open();
}

bool GVRWinFilterDesign::setComparedDesigns(const QStringList& names)
{
    const LibraryDesignSource source(filterDesignModel_.library());
    std::vector<ComparedFilter> chosen;
    for (const QString& name : names.mid(0, kMaxComparedFilters)) {
        QString error;
        std::optional<ComparedFilter> filter = comparedFilter(source, name, &error);
        if (!filter) {
            auto* alert =
                new QMessageBox(QMessageBox::Warning, tr("Compare"),
                                tr("The filter %1 cannot be compared.").arg(name), QMessageBox::Ok, this);
            alert->setInformativeText(error);
            alert->setAttribute(Qt::WA_DeleteOnClose);
            alert->setWindowModality(Qt::WindowModal);
            alert->open();
            return false;
        }
        chosen.push_back(std::move(*filter));
    }
    compared_ = std::move(chosen);
    refreshComparison();
    return true;
}

void GVRWinFilterDesign::clearComparison()
{
    setComparedDesigns({});
}

void GVRWinFilterDesign::refreshComparison()
{
    clearComparisonBut_->setEnabled(!compared_.empty());
    const int units = filterDesignModel_.unitsType();
    const double axis = dBmagAndPhaseArray_.size() > 3 ? dBmagAndPhaseArray_[3] : 1.0;
    std::vector<ComparedCurve> curves;
    for (const ComparedFilter& f : compared_) {
        const bool sameUnits = f.units == units;
        ComparedCurve curve{sameUnits ? f.name : tr("%1 (normalised)").arg(f.name),
                            std::vector<double>(f.dB.size()), f.dB};
        const double scale = sameUnits ? f.fsOver2 : axis;
        for (std::size_t k = 0; k < curve.xs.size(); ++k)
            curve.xs[k] = double(k) / double(curve.xs.size()) * scale;
        curves.push_back(std::move(curve));
    }
    viewFiltDesign_->setComparison(std::move(curves), filterFilename().value_or(tr("(Untitled)")));
}
