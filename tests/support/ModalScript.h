#pragma once

#include <QList>
#include <QTimer>
#include <functional>

#include "support/FormRobot.h"

class Form;

/// Somebody at the modal windows that come up while the code under test waits for their end: the first work is done at
/// the first window, the next one at the window that comes up after or out of it. A work ends its window. It fails the
/// test when one does not, when a window comes up that has no work, and when a work is left over.
class ModalScript {
  public:
    using Work = std::function<void(const FormRobot& hands)>;

    explicit ModalScript(QList<Work> works);
    ~ModalScript();
    ModalScript(const ModalScript&) = delete;
    ModalScript& operator=(const ModalScript&) = delete;

    /// How many windows came up.
    int Opened() const { return opened_; }

  private:
    void Look();
    void Do(Form& window, const Work& work);

    QList<Work> works_;
    QList<Form*> atWork_;
    QTimer timer_;
    int opened_ = 0;
};
