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
    /// Shows the person and the master lists and logs the view. The form is unchanged if the result is not Done.
    StoreOutcome Open(const QString& code);

    /// Validates, writes and ends the program. On an error shows a message and keeps the form open.
    void Save();
    void Delete();
    /// Ends the program; asks first if input would be lost. Ends at once while answering is being retried.
    void End();

  private:
    void ConnectItems();
    void ConnectCode(size_t item);
    void ConnectDate(size_t item);
    void FillLists();
    void ShowRecord();
    StaffValues Entered() const;
    bool ShowFirstError(const StaffValues& entered);
    void Conclude(StoreOutcome outcome, const QString& failure);
    void OfferToReadAgain();
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
