#include <QHelpEvent>
#include <QLineEdit>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/SearchConditions.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

class Hints : public MainFormTest {
  protected:
    void TearDown() override {
        QToolTip::hideText();
        MainFormTest::TearDown();
    }

    /// The text of the tooltip that appears over a control, empty if none does.
    static QString TipOver(QWidget& widget) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); })) << "tooltips disappear after a while";
        const QPoint place = widget.rect().center();
        QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &event);
        QTextDocument text;
        text.setHtml(QToolTip::text());
        return text.toPlainText();
    }
    QString Tip(const QString& item, int index = -1) const { return TipOver(Item(item, index).Widget()); }
    void SetRow(StaffText field, const QString& text) const {
        Globals().Rows.Text(field, 0) = text;
        PaintDetailRow(0, 0);
    }
};

}  // namespace

TEST_F(Hints, EveryItemOfTheHeadHasATooltip) {
    Start();
    QStringList items = {u"btn_集計検索"_s, u"btn_画面クリア"_s};
    for (const TextCondition& text : TextConditions()) items << text.item << text.selection.button;
    for (const RangeCondition& range : RangeConditions())
        items << range.fromItem << range.toItem << range.selection.button;
    for (const KindCondition& kind : KindConditions()) items << kind.item << kind.listItem;
    for (const QString& item : items) EXPECT_FALSE(Tip(item).isEmpty()) << item.toStdString();
    EXPECT_EQ(Tip(u"終了役職コード"_s),
              u"範囲の終わりのコードです。Ctrl キーまたはダブルクリックで一覧から選べます。"_s);
}

TEST_F(Hints, TelephoneItemNamesTheWindowThatFindsNumbers) {
    Start();
    const auto& item = static_cast<QLineEdit&>(Item(u"検索電話"_s).Widget());
    EXPECT_EQ(item.placeholderText(), u"複数は電話複数指定"_s);
    EXPECT_LE(item.fontMetrics().horizontalAdvance(item.placeholderText()), item.contentsRect().width() - 8);
    EXPECT_EQ(Tip(u"検索電話"_s), u"この項目では見つかりません。電話番号は「電話複数指定」で探してください。"_s);
    EXPECT_EQ(item.text(), QString());
}

TEST_F(Hints, CutTextOfARowIsWholeInItsTooltip) {
    Start();
    const QString whole = QString(30, u'長') + u" <b>1</b>"_s;
    SetRow(StaffText::担当者名, whole);
    EXPECT_EQ(Tip(u"担当者名"_s, 0), whole);
    SetRow(StaffText::担当者名, u"山田　太郎"_s);
    EXPECT_EQ(Tip(u"担当者名"_s, 0), QString());
}

TEST_F(Hints, MemoThatNeedsMoreLinesThanItsCellIsWholeInItsTooltip) {
    Start();
    Item(u"tab_詳細"_s).SetValue(2);
    SetRow(StaffText::担当者メモ, QString(60, u'字'));
    EXPECT_EQ(Tip(u"担当者メモ"_s, 0), QString());
    SetRow(StaffText::担当者メモ, QString(100, u'字'));
    EXPECT_EQ(Tip(u"担当者メモ"_s, 0), QString(100, u'字'));
}

TEST_F(Hints, TooltipOfAStaffCodeExplainsItsColour) {
    Start();
    const QStringList meanings = {
        {}, {}, u"青緑：台帳を閲覧したことのある要員です。"_s, u"緑：台帳を修正したことのある要員です。"_s};
    for (int kind = -2; kind <= 1; ++kind) {
        Globals().Rows.閲覧区分[1] = static_cast<qint16>(kind);
        PaintDetailRow(1, 1);
        EXPECT_EQ(Tip(u"担当者コード"_s, 1), meanings[kind + 2]) << kind;
    }
    Item(u"scl_行"_s).SetValue(1);
    EXPECT_EQ(Tip(u"担当者コード"_s, 0), meanings[3]);
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Tip(u"担当者コード"_s, 0), QString()) << "empty rows have kind 0";
}

TEST_F(Hints, TooltipIsComputedOnlyWhenItIsRequested) {
    Start();
    SetRow(StaffText::住所A, QString(60, u'長'));
    EXPECT_EQ(Item(u"住所A"_s, 0).Widget().toolTip(), QString());
}
