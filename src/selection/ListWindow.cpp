#include "selection/ListWindow.h"

#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

ListWindow::ListWindow(ListWindowDefinition definition) : Form(definition.Name()), definition_(std::move(definition)) {
    setWindowTitle(definition_.caption);
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    BuildListFrame(*this, definition_);
    List().ColumnClick = [this](int column) { SortByColumn(column); };
    EscapePressed = Closing = [this] { Item(u"btn_戻る"_s).Click(); };
    Load = [this] { OnLoad(); };
}

ListView& ListWindow::List() const { return static_cast<ListView&>(Item(definition_.list)); }

void ListWindow::LetUserMakeTaller() {
    const QRect list = List().geometry();
    smallestHeight_ = height();
    smallestList_ = list.height();
    for (const Control* control : Controls()) {
        QWidget& widget = control->Widget();
        if (widget.y() > list.bottom()) belowList_.emplace_back(&widget, widget.y());
    }
    setMaximumHeight(QWIDGETSIZE_MAX);
}

void ListWindow::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    if (smallestHeight_ == 0) return;
    const int more = height() - smallestHeight_;
    const int wholeRows = more / List().RowHeight() * List().RowHeight();
    List().resize(List().width(), smallestList_ + wholeRows);
    for (const auto& [widget, y] : belowList_) widget->move(widget->x(), y + more);
}

void ListWindow::OnLoad() {
    LetUserMakeTaller();
    Prepare();
    for (const ListColumn& column : definition_.columns) List().AddColumn(column.title, column.width);
    LoadList();
    List().SelectRow(-1);
}

void ListWindow::SortByColumn(int column) {
    ListView& list = List();
    if (list.SortKey() != column)
        list.SetSortKey(column);
    else
        list.SetSortOrder(list.SortOrder() == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder);
    list.SetSorted(true);
}

ListRow ListWindow::RowOf(const database::Recordset& record) const {
    ListRow row;
    for (const ListColumn& column : definition_.columns) row.subItems << record[column.field].TextOr(QString());
    row.text = row.subItems.takeFirst();
    row.key = u'C' + row.text;
    return row;
}

void ListWindow::TrackActiveItem(Control& item) {
    item.GotFocus = [&item] { Globals().ActiveItem = &item; };
}

void ListWindow::PairClass(Control& number, Control& list, const std::function<void(int value)>& taken) {
    number.Change = [&number, &list, taken] {
        list.SetListIndex(number.Value());
        taken(number.Value());
    };
    list.Click = [&number, &list] {
        // A value beyond the list shows no entry and must not be overwritten.
        if (list.ListIndex() >= 0) number.SetValue(list.ListIndex());
    };
}
