// One scroll step of the list, eight rows with all fields changing, compared with a page step of a QTableView with the
// same texts. Each step ends when the window has been painted.

#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>

#include "PairedRuns.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/SuiteApplication.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 1600;

QString CellText(const DetailItem& detail, int row) { return detail.item.left(6) + QString::number(row); }

void FillStore() {
    StaffRowStore& rows = Globals().Rows;
    for (int row = 0; row < kRows; ++row) {
        rows.SetText(StaffText::行No, row, QString::number(row + 1));
        rows.出力対象[static_cast<size_t>(row)] = static_cast<qint16>(row % 2);
        rows.閲覧区分[static_cast<size_t>(row)] = static_cast<qint16>(row % 3 - 1);
        for (const DetailItem& detail : DetailItems()) rows.SetText(detail.field, row, CellText(detail, row));
    }
    Globals().LastRow = kRows - 1;
}

QStandardItemModel* SameCells(QObject& parent) {
    const auto& details = DetailItems();
    auto* model = new QStandardItemModel(kRows, static_cast<int>(details.size()) + 2, &parent);
    for (int row = 0; row < kRows; ++row) {
        model->setItem(row, 0, new QStandardItem(QString::number(row + 1)));
        auto* box = new QStandardItem;
        box->setCheckState(row % 2 == 0 ? Qt::Unchecked : Qt::Checked);
        model->setItem(row, 1, box);
        for (int column = 0; column < static_cast<int>(details.size()); ++column)
            model->setItem(row, column + 2, new QStandardItem(CellText(details[static_cast<size_t>(column)], row)));
    }
    return model;
}

/// Shows a table with eight rows and all columns visible.
void ShowTable(QTableView& table) {
    table.setModel(SameCells(table));
    table.setFont(SuiteFont(SuiteFace::Mincho, 12));
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(62);
    table.horizontalHeader()->setDefaultSectionSize(1100 / table.model()->columnCount());
    table.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    table.resize(1140, 8 * 62 + 40);
    table.show();
}

}  // namespace

int main(int argc, char** argv) {
    const SuiteApplication application(argc, argv);
    Globals().RowsPerPage = kRowPositions;
    FillStore();
    auto* form = new frm要員名簿照会([] {});
    Globals().MainForm = form;
    form->show();
    QTableView table;
    ShowTable(table);
    QApplication::processEvents();

    const auto nextPage = [page = 0]() mutable { return (page = (page + kRowPositions) % (kRows - kRowPositions)); };
    PairedRuns runs(200);
    runs.Measure(
        "scroll step of the list",
        [&, step = nextPage]() mutable {
            Globals().TopRow = step();
            PaintDetailRows();
            EndPainting();
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        },
        "page step of a QTableView",
        [&, step = nextPage]() mutable {
            table.verticalScrollBar()->setValue(step());
            QApplication::processEvents();
        });
    return 0;
}
