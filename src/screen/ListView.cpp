#include "screen/ListView.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>

#include "platform/Services.h"
#include "screen/Form.h"
#include "screen/PlainControls.h"
#include "screen/ToolTips.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTypingPause = 1000;   // milliseconds, timeout of the incremental search
constexpr int kRowAir = 4;           // pixels
constexpr int kSmallestColumn = 16;  // pixels; a column of width 0 could not be widened again

bool MovesAmongRows(int key) {
    switch (key) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

/// Rows of one height with some space between them.
class RowDelegate : public QStyledItemDelegate {
  public:
    explicit RowDelegate(ListView& list) : QStyledItemDelegate(&list), list_(list) {}
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), list_.RowHeight()};
    }

    /// The tooltip of a cell that does not show its whole text.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
        const bool cut = sizeHint(option, index).width() > option.rect.width();
        ShowToolTip(*event, *view->viewport(), cut ? index.data().toString() : QString());
        return true;
    }

  private:
    const ListView& list_;
};

/// Header whose background extends to the right of the last column, where Qt leaves the form's colour.
class Titles : public QHeaderView {
  public:
    explicit Titles(QWidget& list) : QHeaderView(Qt::Horizontal, &list) {}

  protected:
    void paintEvent(QPaintEvent* event) override {
        QHeaderView::paintEvent(event);
        QStyleOptionHeader rest;
        initStyleOption(&rest);
        rest.rect = viewport()->rect();
        rest.rect.setLeft(length() - offset());
        rest.position = QStyleOptionHeader::End;
        if (!rest.rect.isValid()) return;
        QPainter painter(viewport());
        style()->drawControl(QStyle::CE_HeaderSection, &rest, &painter, this);
    }
};

}  // namespace

ListView::ListView(Form& form, QWidget& parent, QString name)
    : QTreeView(&parent), Control(form, *this, u"ListView"_s, std::move(name), -1) {
    SetTabStop(true);
    setAccessibleName(Name());
    setModel(&rows_);
    setItemDelegate(new RowDelegate(*this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);  // avoids measuring a thousand rows
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    SetMultiSelect(false);
    setHeader(new Titles(*this));
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(kSmallestColumn);
    // A scroll area filters the input of its viewport, before the form's event filter, so a disabled form would accept
    // clicks. Event filters run in reverse order of installation: install the form's again.
    for (QWidget* view : {viewport(), header()->viewport()}) view->installEventFilter(&form);
    connect(header(), &QHeaderView::sectionClicked, this, [this](int column) {
        EmitByUser([this, column] {
            if (ColumnClick) ColumnClick(column);
        });
    });
}

void ListView::AddColumn(const QString& title, int width) {
    rows_.AddColumn(title);
    header()->resizeSection(header()->count() - 1, qRound(double(width) / kTwipsPerPixel));
}

void ListView::SetCheckBoxes(bool on) { rows_.SetCheckBoxes(on); }

void ListView::SetMultiSelect(bool on) { setSelectionMode(on ? ExtendedSelection : SingleSelection); }

int ListView::RowHeight() const { return fontMetrics().height() + kRowAir; }

void ListView::ClearRows() {
    rows_.Clear();
    header()->setSortIndicatorShown(false);
    pressedRow_ = -1;
    typed_.clear();
}

void ListView::AddRows(QList<ListRow> rows) { rows_.Append(std::move(rows)); }

int ListView::SelectedRow() const {
    const QModelIndex current = currentIndex();
    if (current.isValid() && selectionModel()->isRowSelected(current.row())) return current.row();
    return -1;
}

void ListView::SelectRow(int row) {
    const QModelIndex index = rows_.index(row, 0);
    if (index.isValid()) {
        setCurrentIndex(index);
        scrollTo(index);
    } else {
        selectionModel()->clear();
    }
}

bool ListView::Highlighted(int row) const { return selectionModel()->isRowSelected(row); }

void ListView::SetSorted(bool sorted) {
    if (sorted) rows_.SortBy(sortKey_, sortOrder_);
    header()->setSortIndicator(sortKey_, sortOrder_);
    header()->setSortIndicatorShown(sorted);
    if (SelectedRow() >= 0) scrollTo(currentIndex());
}

int ListView::FirstRowBeginningWith(const QString& beginning) const {
    for (int row = 0; row < RowCount(); ++row) {
        if (Row(row).text.startsWith(beginning, Qt::CaseInsensitive)) return row;
    }
    return -1;
}

void ListView::keyboardSearch(const QString& typed) {
    const QDateTime now = platform::Services().clock->Now();
    const bool paused = !lastTyped_.isValid() || lastTyped_.msecsTo(now) > kTypingPause;
    lastTyped_ = now;
    typed_ = paused ? typed : typed_ + typed;
    int row = FirstRowBeginningWith(typed_);
    if (row < 0 && typed_ != typed) {
        // No match: the last character may begin another word.
        typed_ = typed;
        row = FirstRowBeginningWith(typed_);
    }
    if (row >= 0) SelectRow(row);
}

void ListView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    // Qt makes the first row current, whose focus frame would look like a selection.
    if (SelectedRow() < 0 && selectionMode() == SingleSelection) selectionModel()->clearCurrentIndex();
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        // Auto-repeat must not choose a row in a list to which the search has just moved the focus.
        if (!event->isAutoRepeat() && KeyPress) EmitByUser([this] { KeyPress(kKeyReturn); });
        return;
    }
    if (event->key() == Qt::Key_Space && rows_.CheckBoxes()) {
        event->accept();
        if (!event->isAutoRepeat()) ToggleBySpace(*event);
        return;
    }
    // Without a selected row Qt would move to the second one.
    if (SelectedRow() < 0 && selectionMode() == SingleSelection && MovesAmongRows(event->key())) {
        event->accept();
        SelectRow(event->key() == Qt::Key_End ? RowCount() - 1 : 0);
        return;
    }
    QTreeView::keyPressEvent(event);
}

/// Qt toggles the check mark only if the current cell is in the first column, and also with Ctrl, which should select.
void ListView::ToggleBySpace(const QKeyEvent& event) {
    const QModelIndex caret = currentIndex();
    if (!caret.isValid()) return;
    if (event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::ShiftModifier))
        selectionModel()->select(caret, selectionCommand(caret, &event));
    else
        SetChecked(caret.row(), !Checked(caret.row()));
}

void ListView::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
    pressedRow_ = event->button() == Qt::LeftButton ? indexAt(event->position().toPoint()).row() : -1;
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    const int row = indexAt(event->position().toPoint()).row();
    const bool clicked = event->button() == Qt::LeftButton && row >= 0 && row == pressedRow_;
    if (event->button() == Qt::LeftButton) pressedRow_ = -1;
    if (!clicked) return;
    const DoubleClickGuard guard(*this, *event);
    EmitByUser(Click);
}
