#include "screen/Accessibility.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QWidget>

namespace {

/// Installs `Factory` once per process.
template <QAccessible::InterfaceFactory Factory>
void InstallAccessibleFactory() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(Factory);
        return true;
    }();
}

class PaintedTextInterface : public QAccessibleWidget {
  public:
    PaintedTextInterface(QWidget& widget, const AccessibleText& text)
        : QAccessibleWidget(&widget, text.AccessibleRole()), text_(text) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return text_.AccessibleName();
        return kind == QAccessible::Description ? text_.AccessibleDescription() : QString();
    }

  private:
    const AccessibleText& text_;
};

QAccessibleInterface* MakeAccessibleText(const QString&, QObject* object) {
    const auto* text = dynamic_cast<const AccessibleText*>(object);
    return text == nullptr ? nullptr : new PaintedTextInterface(static_cast<QWidget&>(*object), *text);
}

/// The only child is the list that drops down.
class AccessibleCombo : public QAccessibleWidget {
  public:
    explicit AccessibleCombo(QComboBox& combo) : QAccessibleWidget(&combo, QAccessible::ComboBox), combo_(combo) {}

    QString text(QAccessible::Text kind) const override {
        const bool named = !combo_.accessibleName().isEmpty();
        const bool entry = kind == QAccessible::Value || kind == (named ? QAccessible::Description : QAccessible::Name);
        if (!entry) return QAccessibleWidget::text(kind);
        return combo_.currentIndex() < 0 ? combo_.placeholderText() : combo_.currentText();
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = combo_.view()->isVisible();
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(combo_.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && child->object() == combo_.view() ? 0 : -1;
    }
    /// The list is a separate window at another position.
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << showMenuAction() << pressAction();
    }
    void doAction(const QString& action) override {
        if (action != showMenuAction() && action != pressAction()) return QAccessibleWidget::doAction(action);
        if (combo_.view()->isVisible())
            combo_.hidePopup();
        else
            combo_.showPopup();
    }

  private:
    QComboBox& combo_;
};

QAccessibleInterface* MakeAccessibleCombo(const QString&, QObject* object) {
    auto* combo = qobject_cast<QComboBox*>(object);
    return combo != nullptr && !combo->isEditable() ? new AccessibleCombo(*combo) : nullptr;
}

}  // namespace

void InstallAccessibleText() { InstallAccessibleFactory<MakeAccessibleText>(); }

void InstallAccessibleCombo() { InstallAccessibleFactory<MakeAccessibleCombo>(); }
