#pragma once

#include <QString>

// IPC between the suite's programs: messages are rows of プログラム連携情報 in the user configuration. A program that
// starts another one first posts a start message (連携区分 '00'); the started program answers with an end message
// ('99') when it ends. An end message keeps sender and receiver of its start message, so both sides query the same pair
// of ids. The key of an exchange is the command line of the started program, blanks included. Timestamps are "yyyymmdd
// hhnnss", compared as text.
//
// A failed statement only leaves a row エラー in the run history.

// For the started program.

/// Receives and deletes the first start message for this program with `commandLine` as key, sent at `earliest` or
/// later. Sets LinkSenderId, LinkStartInfo (the key) and LinkStartedAt; without a message, or if the read fails,
/// LinkSenderId and LinkStartedAt are empty and LinkStartInfo is unchanged. Throws nothing.
void ReceiveStartLink(const QString& commandLine, const QString& earliest);

/// Answers the received start message with an end message. `text` is passed to the starter, may be empty, and is stored
/// in LinkEndInfo. True if the answer was written. Throws nothing.
bool WriteEndLink(const QString& text);

/// Answers the start message once, with LinkEndInfo, for a program that can retry. True if the starter will find the
/// answer or no program waits for one; the program's end then writes no second answer. False if the write failed or the
/// clock is before the start message's timestamp, since the starter ignores answers older than its message. Throws
/// nothing.
bool AnswerStarter();

// For the program that starts another one.

/// Disables the main form, posts a start message to the program `receiver` and sleeps 100 ms, after which the message
/// can be found. Call before starting that program. Throws database::DatabaseError if the staff code cannot be read;
/// the form then stays disabled.
void SendLinkMessage(const QString& receiver, const QString& key);

/// Waits without a timeout until the program `sibling` has answered a start message with this key at `earliest` or
/// later, then enables the main form. Polls every 20 ms; processes events meanwhile with LinkWaiting set.
void WaitForLinkedProgram(const QString& sibling, const QString& key, const QString& earliest);

// Single messages, without the main form. `sender` is the program that starts, `receiver` the one that is started.

/// Posts a start message. Throws database::DatabaseError if the staff code cannot be read.
void SendStartLink(const QString& sender, const QString& receiver, const QString& key);

/// Receives and deletes an end message sent at `earliest` or later; its text becomes LinkEndInfo. Returns its key,
/// empty if there is none or the read fails.
QString ReceiveEndLink(const QString& sender, const QString& receiver, const QString& key, const QString& earliest);
