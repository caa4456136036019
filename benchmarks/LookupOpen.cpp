// First opening of the staff lookup with a thousand rows, until the window is painted, compared with the same query on
// SQLite's C API shown in a plain Qt list.

#include <sqlite3.h>

#include <QHeaderView>
#include <QTreeWidget>
#include <memory>

#include "PairedRuns.h"
#include "globals/ProgramGlobals.h"
#include "screen/ListView.h"
#include "screen/SuiteApplication.h"
#include "screen/fonts/Fonts.h"
#include "selection/ListWindow.h"
#include "selection/OpenListWindow.h"
#include "support/StaffDatabase.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStaff = 1200;
constexpr int kRows = 1000;

// Joins in the form that SQLite executes directly.
const QString kStatement =
    u"SELECT M担当者.コード, M担当者.氏名, M事業所.名称, M部門.名称, Mセクション.名称 FROM M担当者"
    " LEFT JOIN M事業所 ON M事業所.コード = M担当者.事業所コード LEFT JOIN M部門 ON M部門.コード = M担当者.部門コード"
    " LEFT JOIN Mセクション ON Mセクション.コード = M担当者.セクションコード"
    " WHERE M担当者.在籍区分 = '0' ORDER BY M担当者.コード LIMIT 1000"_s;

/// A minimal window for this list only.
class BareList {
  public:
    explicit BareList(const QString& path) {
        sqlite3_open_v2(path.toUtf8().constData(), &database_, SQLITE_OPEN_READONLY, nullptr);
    }
    ~BareList() { sqlite3_close(database_); }
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    void Open() {
        list_ = std::make_unique<QTreeWidget>();
        list_->setColumnCount(5);
        list_->setRootIsDecorated(false);
        list_->setUniformRowHeights(true);
        list_->setFont(SuiteFont(SuiteFace::PGothic, 10));
        list_->addTopLevelItems(Items());
        list_->resize(702, 400);
        list_->show();
        QApplication::processEvents();
    }
    int RowCount() const { return list_->topLevelItemCount(); }
    void Close() { list_.reset(); }

  private:
    QList<QTreeWidgetItem*> Items() {
        QList<QTreeWidgetItem*> items;
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database_, kStatement.toUtf8().constData(), -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            auto* item = new QTreeWidgetItem;
            for (int column = 0; column < 5; ++column)
                item->setText(column,
                              QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column))));
            items << item;
        }
        sqlite3_finalize(statement);
        return items;
    }

    sqlite3* database_ = nullptr;
    std::unique_ptr<QTreeWidget> list_;
};

}  // namespace

int main(int argc, char** argv) {
    const SuiteApplication application(argc, argv);
    StaffDatabase database;
    database.AddManyStaff(kStaff);
    database.OpenConnections();
    Globals().Environment.OperatingOfficeCode = Globals().ScopeOfficeCode = u"000"_s;

    std::unique_ptr<ListWindow> window;
    BareList bare(database.GeneralPath());
    const auto open = [&] {
        window.reset(MakeStaffListWindow(u"wnd担当者一覧"_s));
        window->ShowModeless();
        QApplication::processEvents();
    };
    open();
    bare.Open();
    if (window->List().RowCount() != kRows || bare.RowCount() != kRows) {
        std::fprintf(stderr, "the two lists differ: %d and %d rows\n", window->List().RowCount(), bare.RowCount());
        return 1;
    }
    const auto settle = [&] {
        window.reset();
        bare.Close();
        QApplication::processEvents();
    };
    PairedRuns(40, settle)
        .Measure("opening of the staff lookup with 1000 rows", open, "the same rows in a plain list",
                 [&] { bare.Open(); });
    return 0;
}
