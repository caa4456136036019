#pragma once

#include <QString>
#include <QWidget>

#include "screen/Control.h"
#include "screen/AccessibleText.h"

/// A box with a text that only shows: the base of labels, panels and the items of the list. A list page is hundreds of
/// them, written anew at each scroll step, so it paints itself, and a write costs no more than a comparison and a mark
/// for repainting. It keeps its mouse clicks to itself: otherwise Qt hands them to the panel behind. Click is raised
/// when the left button goes up inside; the second press of a double click raises DblClick and no Click.
class LabelItem : public QWidget, public Control, public AccessibleText {
  public:
    LabelItem(Form& form, QWidget& parent, QString typeName, QString name, int index);

    QColor ForeColor() const override { return fore_; }
    void SetForeColor(const QColor& color) override;
    QColor BackColor() const override { return back_; }
    void SetBackColor(const QColor& color) override;
    void setAlignment(Qt::Alignment alignment);
    void SetEdgeless() { SetEdge(Edge::None); }

    const QString& Shown() const { return text_; }

    // The text is the name, the control's name the description. A hidden item, such as a PIN that the user may not
    // see, gives no text.
    QAccessible::Role SpokenRole() const override { return QAccessible::StaticText; }
    QString AccessibleName() const override { return isVisible() ? text_ : QString(); }
    QString SpokenDescription() const override { return Name(); }

  protected:
    enum class Edge { None, Line, Sunken, Raised };

    void Show(const QString& text);
    void SetEdge(Edge edge);
    /// Text over several lines instead of one with a mark where it is cut.
    void SetWrapped(bool wrapped);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void PaintEdge(QPainter& painter) const;
    void PaintLine(QPainter& painter, const QRect& area) const;

    QString text_;
    QColor fore_;
    QColor back_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
    Edge edge_ = Edge::None;
    bool wrapped_ = false;
    bool pressed_ = false;
};
