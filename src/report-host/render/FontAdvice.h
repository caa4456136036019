#pragma once

#include <QString>
#include <QStringList>

// Texts for people about the characters that FontSet::MissingCharacters returns. Need a QGuiApplication.

namespace report {

/// A character with its code points, which identify it where it can't be displayed: "「𠮷」U+20BB7".
QString NameOfCharacter(const QString& character);

/// Names the fonts to install for characters that no installed font has, with their Debian packages: "花園明朝
/// (fonts-hanazono)、外字の書体". Empty without characters.
QString FontsToInstall(const QStringList& characters);

}  // namespace report
