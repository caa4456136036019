#pragma once

#include <QString>
#include <QTimer>

#include <functional>

#include "registration/StaffChecks.h"
#include "registration/StaffStore.h"
#include "screen/Form.h"

/// The form of the registration program: changes or deletes one person.
class frm要員台帳更新 : public Form {
  public:
    /// `leave` ends the program; `answer` answers the program that started this one and returns false on failure.
    frm要員台帳更新(std::function<void()> leave, std::function<bool()> answer);

    /// Opens the staff master for writing; call before Open. False on failure.
    bool OpenStore() { return store_.Open(); }
    /// Reads and shows the person and the master lists, and logs the view. If the result is not Done, the form is
    /// unchanged.
    StoreOutcome Open(const QString& code);

    /// Validates, checks the right, writes and ends the program. On an error shows a message and keeps the form open.
    /// If another user has changed the person, offers to read again.
    void Save();
    /// The same for deleting, after a confirmation.
    void Delete();
    /// Ends the program after a confirmation if input would be lost. While the answer to the program that started this
    /// one is being retried, ends at once.
    void End();

  private:
    void ConnectItems();
    void ConnectCode(size_t item);
    void ConnectDate(size_t item);
    void FillLists();
    void ShowRecord();
    StaffValues Entered() const;
    bool ShowFirstError(const StaffValues& entered);
    /// Acts on the outcome of a write; `failure` is the message for Failed.
    void Conclude(StoreOutcome outcome, const QString& failure);
    void OfferToReadAgain();
    /// Answers and ends the program; if answering fails, disables the form and retries by a timer.
    void AnswerAndLeave();
    void RetryAnswer();
    Control& ItemOf(size_t item) const { return Item(kStaffItems[item].column.toString()); }

    StaffStore store_;
    std::function<void()> leave_;
    std::function<bool()> answer_;
    QTimer retryTimer_;
    StaffMasters masters_;
    StaffRecord record_;  ///< as read
    StaffValues shown_;   ///< the items as first shown
};
