#include "screen/AccessibleText.h"

#include <QAccessibleWidget>
#include <QWidget>

#include "screen/AccessibleFactory.h"

namespace {

class SpokenTextAccess : public QAccessibleWidget {
  public:
    SpokenTextAccess(QWidget& widget, const AccessibleText& spoken)
        : QAccessibleWidget(&widget, spoken.SpokenRole()), spoken_(spoken) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return spoken_.AccessibleName();
        return kind == QAccessible::Description ? spoken_.SpokenDescription() : QString();
    }

  private:
    const AccessibleText& spoken_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    const auto* spoken = dynamic_cast<const AccessibleText*>(object);
    return spoken == nullptr ? nullptr : new SpokenTextAccess(static_cast<QWidget&>(*object), *spoken);
}

}  // namespace

void InstallSpokenTextAccess() { InstallAccessFactory<MakeAccess>(); }
