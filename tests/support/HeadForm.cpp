#include "support/HeadForm.h"

#include "inquiry/ConditionProcedures.h"
#include "inquiry/ScreenState.h"

using namespace Qt::StringLiterals;

PlainItem::PlainItem(Form& form, QString name, int index)
    : Control(form, *new QWidget(&form), u"xField"_s, std::move(name), index) {}

HeadForm::HeadForm() : Form(u"frm要員名簿照会"_s) {
    for (const RangeCondition& range : RangeConditions())
        for (const QString& name : {range.fromItem, range.toItem, range.selection.button}) Add(name);
    for (const TextCondition& text : TextConditions()) {
        Add(text.item);
        Add(text.selection.button);
        Plain(text.item).maxLength = text.design.maxLength;
    }
    for (const KindCondition& kind : KindConditions()) {
        Add(kind.item);
        Add(kind.listItem);
    }
    Add(u"お知らせ"_s);
    Add(u"scl_行"_s);
    for (int position = 0; position < kRowPositions; ++position) {
        Add(u"行No"_s, position);
        Add(u"chb_出力対象"_s, position);
        for (const DetailItem& item : DetailItems()) Add(item.item, position);
    }
    Plain(u"在籍区分"_s).maxValue = 2;
    Plain(u"社員区分"_s).maxValue = 4;
}

PlainItem& HeadForm::Plain(const QString& name, int index) const { return dynamic_cast<PlainItem&>(Item(name, index)); }

void HeadForm::Add(const QString& name, int index) {
    items_.push_back(std::make_unique<PlainItem>(*this, name, index));
}
