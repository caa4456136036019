#pragma once

#include <QString>
#include <QWidget>

#include "screen/Control.h"

/// A box with a text that only shows: the base of labels, panels and the items of the list. It paints itself, which
/// is what makes scrolling quick, and keeps its mouse clicks to itself.
class FlatItem : public QWidget, public Control {
  public:
    FlatItem(Form& form, QWidget& parent, QString typeName, QString name, int index);

    QColor ForeColor() const override { return fore_; }
    void SetForeColor(const QColor& color) override;
    QColor BackColor() const override { return back_; }
    void SetBackColor(const QColor& color) override;
    void setAlignment(Qt::Alignment alignment) { alignment_ = alignment; }

    const QString& Shown() const { return text_; }

  protected:
    enum class Edge { None, Line, Sunken, Raised };

    void Show(const QString& text);
    void SetEdge(Edge edge) { edge_ = edge; }
    /// Text over several lines instead of one with a mark where it is cut.
    void SetWrapped(bool wrapped) { wrapped_ = wrapped; }

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    QString text_;
    QColor fore_;
    QColor back_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
    Edge edge_ = Edge::None;
    bool wrapped_ = false;
};

/// Makes the text of flat items known to assistive tools, and that of hidden ones unknown. Once for the program.
void InstallFlatItemAccessibility();
