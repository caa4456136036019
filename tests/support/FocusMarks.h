#pragma once

#include <QFont>
#include <QPalette>
#include <QRect>
#include <QStringList>

#include <functional>

class Form;
class QWidget;

/// Sets the suite's style, palette and font for the lifetime of the object, as the programs do at their start.
class SuiteLook {
  public:
    SuiteLook();
    ~SuiteLook();
    SuiteLook(const SuiteLook&) = delete;
    SuiteLook& operator=(const SuiteLook&) = delete;

  private:
    QString style_;
    QPalette palette_;
    QFont font_;
};

/// True if two pictures of the window, one after `give` has moved the focus to a stop and one after `take` has moved it
/// elsewhere, differ visibly in `area`, which is relative to the window.
bool ShowsFocus(QWidget& window, const QRect& area, const std::function<void()>& give,
                const std::function<void()>& take);

/// Asserts that each tab stop of a shown form looks different with and without the focus. Returns the names of the
/// stops in tab order, from the one that has the focus.
QStringList ExpectFocusMarks(Form& form);
