#pragma once

#include <QString>
#include <QWidget>

#include "screen/Accessibility.h"
#include "screen/Control.h"
#include "screen/fonts/Fonts.h"

/// Read-only text box: base class of labels, panels and list row items. A list page consists of hundreds of them, all
/// rewritten at each scroll step; so it paints itself, and writing only compares and schedules a repaint. It accepts
/// mouse events, which Qt would otherwise deliver to the panel below. Click is emitted when the left button is released
/// inside; the second press of a double-click emits DblClick and no Click.
class LabelItem : public QWidget, public Control, public AccessibleText {
  public:
    LabelItem(Form& form, QWidget& parent, QString typeName, QString name, int index);

    QColor ForeColor() const override { return fore_; }
    void SetForeColor(const QColor& color) override;
    QColor BackColor() const override { return back_; }
    void SetBackColor(const QColor& color) override;
    void setAlignment(Qt::Alignment alignment);
    void SetEdgeless() { SetEdge(Edge::None); }

    /// The text, also while the item is hidden.
    const QString& Shown() const { return text_; }

    /// Second line of the tooltip, computed when the tooltip is requested; may be empty. The first line is the whole
    /// text if the item does not show all of it.
    std::function<QString()> Hint;

    // The text is the accessible name, the control's name the description. A hidden item, such as a PIN that the user
    // may not see, has no accessible text.
    QAccessible::Role AccessibleRole() const override { return QAccessible::StaticText; }
    QString AccessibleName() const override { return isVisible() ? text_ : QString(); }
    QString AccessibleDescription() const override { return Name(); }

  protected:
    enum class Edge { None, Line, Sunken, Raised };

    /// Sets the text.
    void Show(const QString& text);
    void SetEdge(Edge edge);
    /// Wraps the text instead of eliding it.
    void SetWrapped(bool wrapped);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void PaintEdge(QPainter& painter) const;
    void PaintLine(QPainter& painter, const QRect& area) const;
    QRect TextArea() const;
    bool IsCut() const;
    QString ToolTipText() const;

    QString text_;
    QColor fore_;
    QColor back_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
    Edge edge_ = Edge::None;
    bool wrapped_ = false;
    bool pressed_ = false;
};

/// xLabel: Label(form, parent, name, index, caption), with a line around it, background kCaptionColor.
class Label : public LabelItem {
  public:
    Label(Form& form, QWidget& parent, QString name, int index, const QString& caption)
        : LabelItem(form, parent, QStringLiteral("xLabel"), std::move(name), index) {
        SetBackColor(kCaptionColor);
        SetEdge(Edge::Line);
        Show(caption);
    }

    QString Caption() const override { return Shown(); }
    void SetCaption(const QString& caption) override { Show(caption); }
};

/// An item of a list row: DisplayItem(form, parent, typeName, name, index). Its TypeName is that of an input item, but
/// it takes no focus and no input and is no tab stop. An xText wraps its text; the others elide it.
class DisplayItem : public LabelItem {
  public:
    DisplayItem(Form& form, QWidget& parent, QString typeName, QString name, int index)
        : LabelItem(form, parent, std::move(typeName), std::move(name), index) {
        SetBackColor(palette().color(QPalette::Base));
        SetForeColor(palette().color(QPalette::Text));
        SetEdge(Edge::Sunken);
        SetWrapped(TypeName() == QLatin1StringView("xText"));
    }

    QString Text() const override { return Shown(); }
    void SetText(const QString& text) override {
        if (text == Shown()) return;
        Show(text);
        if (Change) Change();
    }
};

/// SSPanel: Panel(form, parent, name, index, caption). Contains other controls or shows its caption centred.
/// Accessibility: without children as a label; with children as a group described by the texts on it, so that a screen
/// reader can read a row of the list.
class Panel : public LabelItem {
  public:
    Panel(Form& form, QWidget& parent, QString name, int index, const QString& caption)
        : LabelItem(form, parent, QStringLiteral("SSPanel"), std::move(name), index) {
        setAlignment(Qt::AlignCenter);
        SetEdge(Edge::Raised);
        Show(caption);
    }

    /// Style for titles of items and columns.
    void SetTitle() {
        SetBackColor(kCaptionColor);
        SetEdge(Edge::Line);
    }

    QString Caption() const override { return Shown(); }
    void SetCaption(const QString& caption) override { Show(caption); }

    QAccessible::Role AccessibleRole() const override {
        return HasChildren() ? QAccessible::Grouping : LabelItem::AccessibleRole();
    }
    QString AccessibleName() const override { return HasChildren() ? Name() : LabelItem::AccessibleName(); }
    QString AccessibleDescription() const override;

  private:
    bool HasChildren() const { return !children().isEmpty(); }
    QString TextsOnIt() const;
};
