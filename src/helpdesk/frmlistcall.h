#pragma once

#include <QWidget>

class CallListView;
class QPushButton;

// "Select call": a list of calls; OK or a double click opens the call in its place.
class frmListCall : public QWidget {
    Q_OBJECT
public:
    explicit frmListCall(QWidget* parent = nullptr);

    // "All": every call, the closed ones in red; anything else: the calls not closed.
    void load(const QString& kind);
    // The calls of one caller; false when they have none.
    bool LoadInd(qint64 personId);

    // True from the opening of the screen: a caller holding a list screen can tell it from
    // another kind of screen.
    bool Iscalls() const { return true; }

    // Opens the highlighted call (the list's first row when none is) and closes the list.
    void ok();

    CallListView* lvCalls = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void open(qint64 callId);
};
