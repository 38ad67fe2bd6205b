#pragma once

#include <QWidget>

class QTextBrowser;

// The user guide, kept in the program's resources and shown inside it.
class frmHelp : public QWidget {
    Q_OBJECT
public:
    explicit frmHelp(QWidget* parent = nullptr);
    QTextBrowser* browser = nullptr;
};
