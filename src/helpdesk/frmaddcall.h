#pragma once

#include "calls.h"
#include "loadedrow.h"

#include <QWidget>

class CallAssetPages;
class DateBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class RecordList;

// The helpdesk call: logged, edited, closed and opened again here. The caption of the first
// button is the screen's state: "Log Call" for a new call, "Close" once it is logged, "Update"
// for an open call and "Re-Open" for a closed one. Every instance keeps its own call.
class frmaddcall : public QWidget {
    Q_OBJECT
public:
    explicit frmaddcall(QWidget* parent = nullptr);

    // A blank new call, status "Open".
    void NewCall();
    // Shows the stored call; false when there is no such call (the caller says so).
    bool loadcall(qint64 callId);

    // The call as the boxes hold it.
    helpdesk::CallText call() const;

    // What the first button does by its caption: log, save, or reopen.
    void button1();
    // Records an action on the call: what was done, the note, and the status it leaves.
    void addAction();
    // Opens the picker for the fault type now chosen and shows what is picked.
    void pickForFault();
    // A caller picked: their extension, and the person the call is for.
    void pickCaller(int index);

    bool newcall = false;
    qint64 personid = 0;
    qint64 computerid = 0;
    qint64 peripheralid = 0;
    qint64 callid = 0;

    QGroupBox* fraDetails = nullptr;
    QComboBox* cboUser = nullptr;
    QLabel* lblExt = nullptr;
    QLabel* lblDepartment = nullptr; // the caller's department key, never shown
    QComboBox* cboFault = nullptr;
    DateBox* txtDateLogged = nullptr;
    DateBox* txtDateRequired = nullptr;
    QComboBox* cboStatus = nullptr;
    QLabel* lblDateClosed = nullptr;
    QLabel* lblCallNo = nullptr;
    QTabWidget* tabCall = nullptr;
    QPlainTextEdit* txtProblem = nullptr;
    QPlainTextEdit* txtResolution = nullptr;
    RecordList* lvHistory = nullptr;
    CallAssetPages* tabAsset = nullptr;
    QPushButton* cmdLog = nullptr;
    QPushButton* cmdAction = nullptr;
    QPushButton* cmdCancel = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillLists();
    void resetScreen();
    void setClosedLook(bool closed);
    void showHistory(const std::vector<helpdesk::HistoryRow>& rows);
    // Picked: with its software, and "N/A" for a warranty it cannot work out.
    void showComputer(qint64 computerId, bool picked);
    void showPeripheral(qint64 peripheralId);
    void openHistoryRow(qint64 historyId);
    void softwareChosen();
    // Logs or saves the call; true when written. A refusal has been shown.
    bool save();
    void reopen();
    void refuse(const helpdesk::CallProblem& problem);

    core::LoadedRow loaded_;   // the call's row as loaded or last written, for the save's check
    helpdesk::CallText saved_; // the boxes as they were when loaded or last written
    bool typingFault_ = false; // the fault type's text comes from keys, not a pick
    QString typedFault_;       // the fault type typing last arrived at and picked
};
