#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;

namespace core {

// Asks for the regional profile after a new installation. Only a legal choice lets it close.
class frmRegional : public QDialog {
    Q_OBJECT
public:
    explicit frmRegional(QWidget* parent = nullptr);
    QString choice() const;

    QComboBox* Combo1 = nullptr;
    QPushButton* cmdOK = nullptr;

    void reject() override {} // there is no way out but a choice

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void ok();
};

// Shows the splash picture for four seconds, or until a key is pressed.
class frmSplash : public QDialog {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

} // namespace core
