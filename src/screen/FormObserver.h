#pragma once

class Control;
class Form;

/// What the windows report to the program that they belong to, and ask of it. This base class answers nothing.
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
