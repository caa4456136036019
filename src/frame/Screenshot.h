#pragma once

class Form;

/// Where the environment variable MEIBO_PICTURE names a file: once the window stands on the screen with its first
/// list, saves a picture of it there, prints "rows=N", and closes the window in the regular way. Where
/// MEIBO_PICTURE_LOOKUP names a range item of the head, the picture is of the lookup window that Ctrl opens there.
/// Does nothing otherwise.
void TakeFirstListPicture(Form& form);
