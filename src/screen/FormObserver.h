#pragma once

class Control;
class Form;

/// Callbacks from the forms to the program that uses them. The base class does nothing.
class FormObserver {
  public:
    virtual ~FormObserver() = default;
    /// The control is being destroyed; pointers to it must be cleared.
    virtual void ControlRemoved(const Control& /*control*/) {}
    /// The window that opened `form` and is its owner on the desktop; nullptr if there is none.
    virtual Form* OpenerOf(const Form& /*form*/) { return nullptr; }
};

/// Sets the one observer of all forms, which must outlive them; nullptr for none.
void ObserveForms(FormObserver* observer);
