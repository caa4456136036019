#pragma once

#include <QString>

// The message channel between the suite's programs: rows of プログラム連携情報 in the user configuration. Whoever
// starts another program leaves a start message (連携区分 '00') for it, and the started one answers with an end message
// ('99') when it ends. Both ends look for the same pair of ids: an end message keeps the columns of its start message.
// The key of an exchange is what the started program gets on its command line, blanks included. Times are stamps
// "yyyymmdd hhnnss", compared as text.
//
// A statement that fails leaves a row エラー in the run history and nothing else.

/// Takes the first start message for this program with that key, sent at `earliest` or later, out of the channel:
/// its sender and its key go into LinkSenderId and LinkStartInfo. Without one LinkSenderId is empty and LinkStartInfo
/// stays as it was. Any failure ends it quietly.
void ReceiveStartLink(const QString& commandLine, const QString& earliest);

/// Answers the start message that was received; `text` is for the starter and may be empty. Also keeps `text` in
/// LinkEndInfo. True when the answer has been written. Throws nothing.
bool WriteEndLink(const QString& text);

/// Answers the start message once, for a program that can wait when that fails: True when the starter will find the
/// answer, or no program waits for one; the end of the program then writes no other. False when it cannot be written,
/// or the clock is behind the time of the start message: the starter passes over answers that are older than its
/// question.
bool AnswerStarter();

/// Disables the main form, leaves a start message for the program `receiver` and gives it time to lie there before
/// that program is started. Throws database::DatabaseError when the staff code cannot be read; the form stays disabled.
void SendLinkMessage(const QString& receiver, const QString& key);

/// Returns when the program `sibling` has answered, however long that takes, and enables the main form. Events come
/// through all the time, under the guard LinkWaiting.
void WaitForLinkedProgram(const QString& sibling, const QString& key, const QString& earliest);

/// Writes a start message. Throws database::DatabaseError when the staff code cannot be read.
void SendStartLink(const QString& sender, const QString& receiver, const QString& key);

/// Takes an end message, sent at `earliest` or later, out of the channel: its text goes into LinkEndInfo. The result
/// is its key; empty when there is none or it cannot be read.
QString ReceiveEndLink(const QString& sender, const QString& receiver, const QString& key, const QString& earliest);
