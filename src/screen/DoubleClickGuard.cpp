// Part of PlainControls.h: DoubleClickGuard.

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>

#include "screen/PlainControls.h"

namespace {

const QString kName = QStringLiteral("SecondPressFilter");

class SecondPressFilter : public QObject {
  public:
    using QObject::QObject;

    void Await(const QMouseEvent& click) {
        until_ = click.timestamp() + static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
        place_ = click.globalPosition();
        button_ = click.button();
        swallowing_ = false;
        qApp->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick)
            return Pressed(static_cast<QMouseEvent&>(*event));
        if (type == QEvent::MouseMove) return swallowing_;
        if (type != QEvent::MouseButtonRelease || !swallowing_) return false;
        qApp->removeEventFilter(this);
        return true;
    }

  private:
    /// Qt delivers a press to the window first, then to the widget. Filtering the first event discards both.
    bool Pressed(const QMouseEvent& press) {
        const int reach = QGuiApplication::styleHints()->mouseDoubleClickDistance();
        const QPointF way = press.globalPosition() - place_;
        const bool second = press.button() == button_ && press.timestamp() <= until_ && qAbs(way.x()) <= reach &&
                            qAbs(way.y()) <= reach;
        if (!second) qApp->removeEventFilter(this);
        swallowing_ = second;
        return second;
    }

    quint64 until_ = 0;
    QPointF place_;
    Qt::MouseButton button_ = Qt::NoButton;
    bool swallowing_ = false;
};

}  // namespace

DoubleClickGuard::~DoubleClickGuard() {
    if (window_ != nullptr && window_->isVisible()) return;
    // A child of the application, so that nothing outlives it; one is enough, since only the newest click counts.
    auto* filter = qApp->findChild<QObject*>(kName, Qt::FindDirectChildrenOnly);
    if (filter == nullptr) {
        filter = new SecondPressFilter(qApp);
        filter->setObjectName(kName);
    }
    static_cast<SecondPressFilter*>(filter)->Await(click_);
}
