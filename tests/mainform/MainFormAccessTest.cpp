// What a screen reader is given of the main form.

#include <QAccessible>

#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

class MainFormAccess : public MainFormTest {
  protected:
    static QAccessibleInterface* Of(QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); }
    /// Row panels that each page of the tab reports.
    QList<int> RowsOfPages() const {
        QList<int> counts;
        for (const QString& panel : {u"bak_dtlb"_s, u"bak_dtlc"_s, u"bak_dtld"_s}) {
            QAccessibleInterface* page = Of(*Item(panel, 0).Widget().parentWidget());
            int rows = 0;
            for (int index = 0; index < page->childCount(); ++index)
                rows += page->child(index)->text(QAccessible::Name) == panel ? 1 : 0;
            counts << rows;
        }
        return counts;
    }
};

}  // namespace

TEST_F(MainFormAccess, LowScreenHasSixRowsOnEachPage) {
    Start({}, 768);
    EXPECT_EQ(RowsOfPages(), (QList<int>{6, 6, 6}));
}

TEST_F(MainFormAccess, FullScreenHasEightRowsOnEachPage) {
    Start();
    EXPECT_EQ(RowsOfPages(), (QList<int>{8, 8, 8}));
}

TEST_F(MainFormAccess, FormIsDisabledWhileTheSiblingIsAwaitedAndAfterOneThatCannotBeStarted) {
    Start();
    EXPECT_FALSE(Of(Item(u"検索名称"_s).Widget())->state().disabled);
    int waiting = 0;
    const auto expectDisabled = [this] {
        EXPECT_TRUE(Of(MainForm())->state().disabled);
        EXPECT_TRUE(Of(Item(u"担当者名"_s, 0).Widget())->state().disabled);
        for (const QString& name : {u"検索名称"_s, u"在籍区分"_s, u"在籍区分名称"_s, u"btn_集計検索"_s, u"btn_終了"_s})
            EXPECT_TRUE(Of(Item(name).FocusWidget())->state().disabled) << name.toStdString();
    };
    services.processes.started = [&](const auto&) {
        ++waiting;
        expectDisabled();
        throw platform::RuntimeError(platform::kFileNotFound, u"no such program"_s);
    };
    Click(u"担当者名"_s, 0);
    EXPECT_EQ(waiting, 1);
    expectDisabled();
}
