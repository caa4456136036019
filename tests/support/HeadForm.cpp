#include "support/HeadForm.h"

#include "inquiry/ConditionProcedures.h"
#include "inquiry/DetailList.h"

using namespace Qt::StringLiterals;

PlainItem::PlainItem(Form& form, QString name, int index)
    : Control(form, *new QWidget(&form), u"xField"_s, std::move(name), index) {}

HeadForm::HeadForm() : Form(u"frm要員名簿照会"_s) {
    for (const RangeDefinition& range : RangeDefinitions()) {
        Add(range.fromItem);
        Add(range.toItem);
    }
    for (const SearchTextDefinition& text : SearchTextDefinitions()) Add(text.item);
    for (const KindDefinition& kind : KindDefinitions()) {
        Add(kind.item);
        Add(kind.listItem);
    }
    for (const QString& name :
         {u"btn_名称複数指定"_s, u"btn_カナ複数指定"_s, u"btn_住所複数指定"_s, u"btn_電話複数指定"_s,
          u"btn_郵便番号複数指定"_s, u"btn_部門個別選択"_s, u"btn_セクション個別選択"_s, u"btn_役職個別選択"_s,
          u"btn_担当者個別選択"_s, u"お知らせ"_s, u"scl_行"_s})
        Add(name);
    for (int position = 0; position < kRowPositions; ++position) {
        Add(u"行No"_s, position);
        Add(u"chb_出力対象"_s, position);
        for (const DetailItem& item : DetailItems()) Add(item.item, position);
    }
    Plain(u"在籍区分"_s).maxValue = 2;
    Plain(u"社員区分"_s).maxValue = 4;
    Plain(u"検索名称"_s).maxLength = 20;
    Plain(u"検索カナ"_s).maxLength = 20;
    Plain(u"検索住所"_s).maxLength = 40;
    Plain(u"検索電話"_s).maxLength = 16;
    Plain(u"検索郵便番号"_s).maxLength = 8;
}

PlainItem& HeadForm::Plain(const QString& name, int index) const { return dynamic_cast<PlainItem&>(Item(name, index)); }

void HeadForm::Add(const QString& name, int index) {
    items_.push_back(std::make_unique<PlainItem>(*this, name, index));
}
