#pragma once

#include "db.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

// The petty cash ledger: one box of cash for the whole organisation, money put in and taken
// out, whose total never goes below nothing.
//
// An entry's `amount` is text with its direction in front: "+20" for money in, "-4.5" for money
// out, the figure as the user typed it. Anything but a leading "+" counts as money out.
namespace pettycash {

enum class Direction { In, Out };

struct Entry {
    qint64 id = 0;
    QDate date;
    QString amount; // as stored: "+20", "-4.5"
    QString reason;
};

// The direction of a stored amount and its figure, the text after the sign, trimmed.
struct SignedFigure {
    Direction direction = Direction::Out;
    QString figure;
};
SignedFigure splitAmount(const QString& stored);
// The entry dialog's three boxes.
struct EntryText {
    QString date;
    QString figure;
    QString reason;
};
// An entry as its dialog opens on it: the date as the session shows dates, the figure without
// its direction, the reason trimmed.
EntryText entryText(const Entry& entry);
// The entry as an edit to `typed` stores it: its direction never changes, the figure is kept
// as figureText keeps it, the reason trimmed.
Entry editedEntry(const Entry& entry, const EntryText& typed);
// The signed value of a stored amount; nullopt when its figure is no number.
std::optional<core::Money> amountValue(const QString& stored);
// "+" or "-" and the figure.
QString storedAmount(Direction direction, const QString& figure);
// How the ledger's list shows an amount: "+ £20", "- £4.5".
QString displayAmount(const QString& stored, const QString& sign);

// A typed amount: a number above nothing, as people type money ("30,000", "£30,000.50"), no
// larger than any money column holds; nullopt for anything else. More than four decimals are
// rounded away in the value (the stored text keeps them).
std::optional<core::Money> readFigure(const QString& typed);
// The figure as it is stored: the typed text, trimmed, when it is a plain number; the
// number itself when the user typed it with a currency sign or thousands separators, so that
// a stored amount is always the sign and a plain figure.
QString figureText(const QString& typed);

// What is wrong with an entry as typed, "" when nothing: a date that is no date or an amount
// that is no number above nothing gets "Please enter a date in the format DD/MM/YYYY and an
// amount" (MM/DD/YYYY for "English (US)"), a date after today "You cannot enter a date in the
// future". An amount larger than money holds is told how much it can.
QString checkFundsEntry(const QString& dateText, const QString& amountText, const QDate& today,
                        const QString& language);

// Why a command was turned away.
enum class Refusal { None, NoFunds, Insufficient, Changed };
// "There are no funds available", "There are insufficient funds", or the message that the
// entry has been changed by another user; "" for None.
QString refusalMessage(Refusal refusal);

// The funds checks. Each takes the ledger's total as it stands, including the entry a delete
// or edit concerns, and asks whether the total afterwards stays at or above nothing.
// Remove Funds, before its dialog opens: there must be something in the box.
Refusal checkRemoveStart(core::Money total);
Refusal checkRemove(core::Money total, core::Money amount);
Refusal checkDelete(core::Money total, Direction direction, core::Money figure);
Refusal checkEdit(core::Money total, Direction direction, core::Money oldFigure,
                  core::Money newFigure);

// Every entry, newest first (by date, then the latest written).
std::vector<Entry> entries(core::Db& db);
// The entry with the given key as it is stored; nullopt when there is none.
std::optional<Entry> entry(core::Db& db, qint64 id);
// The sum of every entry. Amounts whose figure cannot be read count as nothing.
core::Money total(core::Db& db);

// What a command did: refused, or written, with the ledger's total afterwards.
struct Outcome {
    Refusal refusal = Refusal::None;
    qint64 id = 0; // the entry written (Add/Remove Funds)
    core::Money total;
    // Refused with Changed: the entry as it now stands, nullopt when it has been deleted.
    std::optional<Entry> current;
};

// The commands. Each runs in one transaction that first reads the total afresh, so entries
// other users have made count, and takes the ledger for itself on a shared server, so that two
// people emptying the box at once cannot both succeed. `figure` is the typed amount, which
// the caller has checked with readFigure; the reason is stored trimmed.
Outcome addFunds(core::Db& db, const QDate& date, const QString& figure, const QString& reason);
Outcome removeFunds(core::Db& db, const QDate& date, const QString& figure, const QString& reason);
// `shown` is the entry as the list showed it; an entry another user has deleted in the meantime
// is gone already, which is what the user wanted.
Outcome deleteEntry(core::Db& db, const Entry& shown);
// Rewrites an entry's date, figure and reason, keeping its direction. Refused with Changed when
// the stored entry no longer is the one shown.
Outcome editEntry(core::Db& db, const Entry& shown, const QDate& date, const QString& figure,
                  const QString& reason);

} // namespace pettycash
