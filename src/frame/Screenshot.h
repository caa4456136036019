#pragma once

class Form;

/// If the environment variable MEIBO_PICTURE names a file: saves a picture of the window to it after the first list is
/// shown, prints "rows=N" and closes the window normally. If MEIBO_PICTURE_LOOKUP names a range item of the head, the
/// picture is of the lookup window that Ctrl opens there. Does nothing otherwise.
void TakeFirstListPicture(Form& form);
