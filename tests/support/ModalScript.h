#pragma once

#include <QList>
#include <QTimer>
#include <functional>

#include "support/FormRobot.h"

class Form;

/// Runs one callback per modal window in the order in which the windows appear, nested ones included, while the code
/// under test waits for them. Each callback must close its window. The test fails if one does not, if there are more
/// windows than callbacks, or fewer.
class ModalScript {
  public:
    using Callback = std::function<void(const FormRobot& robot)>;

    explicit ModalScript(QList<Callback> callbacks);
    ~ModalScript();
    ModalScript(const ModalScript&) = delete;
    ModalScript& operator=(const ModalScript&) = delete;

    /// Number of windows that have appeared.
    int Opened() const { return opened_; }

  private:
    void Poll();
    void Do(Form& window, const Callback& callback);

    QList<Callback> callbacks_;
    QList<Form*> busy_;
    QTimer timer_;
    int opened_ = 0;
};
