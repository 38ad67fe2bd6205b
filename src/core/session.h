#pragma once

#include "db.h"

#include <QDate>
#include <QString>
#include <memory>

namespace core {

// What the start-up routine keeps for the whole process; every screen reads it.
struct SessionState {
    QString servername;
    QString databasename;
    QString currentuser;
    bool restoremode = false;
    int NoDaysAbsence = 0;
    int baserate = 0;
    int SickBeforeDoc = 0;
    QDate fireexttest;
    QDate pattest;
    int firelength = 0;
    int patlength = 0;
    int nodaysbackup = 0;
    QString language; // the regional profile: "English (UK)" or "English (US)"
    QString lastbackup;
    bool askregional = false;
    int startuperrorcount = 0;
};

SessionState& session();

// The session connection. Screens ask for it each time they run a statement, so that a
// log off that replaces it is followed by every open screen.
Db& db();
bool hasDb();
void setDb(std::unique_ptr<Db> connection);
std::unique_ptr<Db> takeDb();

// The login name of the session.
QString getcurrentuser();
// Whether the session was opened in restore mode.
bool isrestoremode();

} // namespace core
