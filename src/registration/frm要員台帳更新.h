#pragma once

#include <QString>
#include <QTimer>

#include <functional>

#include "registration/StaffMasters.h"
#include "registration/StaffStore.h"
#include "screen/Form.h"

/// The one form of the registration program: a person, to be changed or deleted.
class frm要員台帳更新 : public Form {
  public:
    /// `leave` ends the program; `answer` tells the program that started this one, and is False where it cannot.
    frm要員台帳更新(std::function<void()> leave, std::function<bool()> answer);

    /// Opens the staff master for writing, before the first Open. False when it can't be.
    bool OpenStore() { return store_.Open(); }
    /// Reads the person and the masters into the items and notes the look in the viewing log. Otherwise than Done the
    /// form stays as it is.
    StoreOutcome Open(const QString& code);

    /// Checks, writes and ends the program. Whatever stands against it is told, and the form stays as it is.
    void Save();
    void Delete();
    /// Ends the program, after a question where something would be lost; at once while an answer is tried again.
    void End();

  private:
    void WireItems();
    void WireCode(size_t item);
    void WireDate(size_t item);
    void FillLists();
    void ShowRecord();
    StaffValues Entered() const;
    bool Object(const StaffValues& entered);
    void Conclude(StoreOutcome outcome, const QString& failure);
    void OfferToReadAgain();
    void AnswerAndLeave();
    void TryAgain();
    Control& ItemOf(size_t item) const { return Item(kStaffItems[item].column.toString()); }

    StaffStore store_;
    std::function<void()> leave_;
    std::function<bool()> answer_;
    QTimer nextTry_;
    StaffMasters masters_;
    StaffRecord record_;  ///< as it was read
    StaffValues shown_;   ///< the items as they were shown
};
