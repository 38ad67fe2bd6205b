#pragma once

#include "db.h"
#include "loadedrow.h"

#include <QString>
#include <optional>
#include <vector>

// The telephone directory: who is listed, how a row reads, and the contacts it keeps.
namespace suppliers {

// What a directory row stands for. Lists keep it beside the key, so no row is ever told apart
// by its text.
enum class EntryKind { Employee, Contact, CompanyContact, Supplier };

struct DirectoryRow {
    EntryKind kind = EntryKind::Employee;
    qint64 id = 0;
    QString name;   // "{surname}, {firstnames}", a company's or a supplier's name
    QString number; // extension or phone
};
using DirectoryRows = std::vector<DirectoryRow>;

// The text an empty list shows in its one row.
QString noMatchingEntries(); // "No matching entries"

// Employees whose surname begins with the text (neither leavers nor deleted), by surname and
// first names ignoring case; then the contacts whose surname (a company contact: whose company)
// begins with it, in the order they were added. The text is matched as typed, ignoring case; ""
// lists all.
DirectoryRows findPeople(core::Db& db, const QString& surname);
// Suppliers whose name begins with the text, by name ignoring case.
DirectoryRows findSuppliers(core::Db& db, const QString& name);
// Suppliers providing the service whose name begins with the text, by name.
DirectoryRows findSuppliersByService(core::Db& db, qint64 serviceId, const QString& name);

// The letter tab that typing the text brings to the front: 0 for "a" ... 25 for "z", by the
// text's first character in either case; nullopt leaves the strip where it is.
std::optional<int> letterTabFor(const QString& text);
// What a tab of the strip searches for: "" for "ALL", the letter otherwise.
QString letterTabText(const QString& caption);

// A person kept in the directory.
struct PersonContact {
    QString firstname;
    QString surname;
    QString phone;
    QString fax;
    QString email;
};
// "Please enter name and phone number" when the surname or the phone is missing, "" otherwise.
QString checkPersonContact(const PersonContact& contact);
qint64 addPersonContact(core::Db& db, const PersonContact& contact);
std::optional<PersonContact> loadPersonContact(core::Db& db, qint64 contactId);
// Rewrites a person. The row must still be as `loaded` saw it: another user's change or
// delete since throws core::RowChanged and writes nothing.
void updatePersonContact(core::Db& db, qint64 contactId, const PersonContact& contact,
                         const core::LoadedRow& loaded = {});

// A company kept in the directory, with the person to ask for there.
struct CompanyContact {
    QString company;
    QString contactname;
    QString phone;
    QString email;
    QString fax;
};
// "Please enter the company name and phone number" when either is missing, "" otherwise.
QString checkCompanyContact(const CompanyContact& contact);
qint64 addCompanyContact(core::Db& db, const CompanyContact& contact);
std::optional<CompanyContact> loadCompanyContact(core::Db& db, qint64 contactId);
// Rewrites a company, checked against `loaded` as a person is.
void updateCompanyContact(core::Db& db, qint64 contactId, const CompanyContact& contact,
                          const core::LoadedRow& loaded = {});
// A person's or company's row as its save will compare it.
core::LoadedRow loadedContactRow(core::Db& db, qint64 contactId);

void deleteContact(core::Db& db, qint64 contactId);

// "Are you sure you want to delete {name}".
QString deleteQuestion(const QString& name);
// Refusal for an employee row on the person page (it starts with a blank, as it always has).
QString employeeDeleteRefusal();
// "Please enter the service required before entering the company name" (a key with no
// service chosen) and "Please select the service required ..." (a change with none chosen).
QString serviceFirstOnKey();
QString serviceFirstOnChange();
// A letter tab clicked on the by-service page with no service chosen.
QString serviceFirstOnLetter(); // "Please select the service required first."

} // namespace suppliers
