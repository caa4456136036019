// Part of Accessibility.h: the widgets in a form.

#include <QGuiApplication>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "screen/Accessibility.h"
#include "screen/Form.h"

namespace {

const Form* FormOf(const QObject* object) {
    const auto* widget = qobject_cast<const QWidget*>(object);
    return widget == nullptr ? nullptr : dynamic_cast<const Form*>(widget->window());
}

/// Less than half of a text box or panel is inside its parent.
bool Outside(const QObject* object) {
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (widget == nullptr || dynamic_cast<const AccessibleText*>(object) == nullptr) return false;
    return !widget->parentWidget()->rect().contains(widget->geometry().center());
}

/// Positions are device pixels to the X server's other clients, which put pointers and magnifiers there. Qt reports its
/// own pixels.
struct Scale {
    explicit Scale(const QObject* object) {
        const auto* widget = qobject_cast<const QWidget*>(object);
        if (widget == nullptr || QGuiApplication::platformName() != QStringLiteral("xcb")) return;
        factor = widget->screen()->devicePixelRatio();
        origin = widget->screen()->geometry().topLeft();
    }
    QPoint ToDevice(const QPoint& place) const { return (place - origin) * factor + origin; }
    QPoint FromDevice(const QPoint& place) const { return (place - origin) / factor + origin; }

    double factor = 1;
    QPoint origin;
};

/// Passes everything on to the interface that the widget would have otherwise, which it owns. That one stays in Qt's
/// cache, where Qt puts every interface that it makes.
class InterfaceInForm : public QAccessibleInterface {
  public:
    explicit InterfaceInForm(QAccessibleInterface& usual)
        : usual_(usual), usualId_(QAccessible::uniqueId(&usual)), object_(usual.object()) {}
    ~InterfaceInForm() override { QAccessible::deleteAccessibleInterface(usualId_); }

    QAccessible::State state() const override {
        QAccessible::State state = usual_.state();
        const Form* form = FormOf(object());
        if (form != nullptr && !form->Enabled()) state.disabled = true;
        return state;
    }
    int childCount() const override { return AllInside() ? usual_.childCount() : static_cast<int>(Inside().size()); }
    QAccessibleInterface* child(int index) const override {
        return usual_.child(AllInside() ? index : Inside().value(index, -1));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const int index = usual_.indexOfChild(child);
        return AllInside() ? index : static_cast<int>(Inside().indexOf(index));
    }

    bool isValid() const override { return usual_.isValid(); }
    /// At the end of the program Qt asks for it when the usual interface may be deleted already.
    QObject* object() const override { return object_; }
    QWindow* window() const override { return usual_.window(); }
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(QAccessible::Relation match) const override {
        return usual_.relations(match);
    }
    QAccessibleInterface* focusChild() const override { return usual_.focusChild(); }
    QAccessibleInterface* childAt(int x, int y) const override {
        const Scale scale(object());
        const QPoint place = scale.FromDevice({x, y});
        return usual_.childAt(place.x(), place.y());
    }
    QAccessibleInterface* parent() const override { return usual_.parent(); }
    QString text(QAccessible::Text kind) const override { return usual_.text(kind); }
    void setText(QAccessible::Text kind, const QString& text) override { usual_.setText(kind, text); }
    QRect rect() const override {
        const Scale scale(object());
        const QRect rect = usual_.rect();
        return {scale.ToDevice(rect.topLeft()), rect.size() * scale.factor};
    }
    QAccessible::Role role() const override { return usual_.role(); }
    QColor foregroundColor() const override { return usual_.foregroundColor(); }
    QColor backgroundColor() const override { return usual_.backgroundColor(); }
    void* interface_cast(QAccessible::InterfaceType type) override { return usual_.interface_cast(type); }

  private:
    bool AllInside() const {
        const QObject* widget = object();
        return widget == nullptr || std::none_of(widget->children().begin(), widget->children().end(), Outside);
    }
    /// Indexes of the children that are inside.
    QList<int> Inside() const {
        QList<int> inside;
        for (int index = 0; index < usual_.childCount(); ++index) {
            if (!Outside(usual_.child(index)->object())) inside << index;
        }
        return inside;
    }

    QAccessibleInterface& usual_;
    QAccessible::Id usualId_;
    QPointer<QObject> object_;
};

QAccessibleInterface* MakeInterfaceInForm(const QString&, QObject* object) {
    static bool asksForUsual = false;
    if (asksForUsual || FormOf(object) == nullptr) return nullptr;
    const QScopedValueRollback<bool> asking(asksForUsual, true);
    QAccessibleInterface* usual = QAccessible::queryAccessibleInterface(object);
    return usual == nullptr ? nullptr : new InterfaceInForm(*usual);
}

}  // namespace

void InstallAccessibleForm() {
    // Qt asks the factory first that was installed last.
    InstallAccessibleText();
    InstallAccessibleCombo();
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(MakeInterfaceInForm);
        return true;
    }();
}

void AnnounceEnabled(Form& form) {
    if (!QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent ofForm(&form, changed);
    QAccessible::updateAccessibility(&ofForm);
    for (const Control* control : form.Controls()) {
        if (!control->TabStop()) continue;
        QAccessibleStateChangeEvent event(&control->FocusWidget(), changed);
        QAccessible::updateAccessibility(&event);
    }
}
