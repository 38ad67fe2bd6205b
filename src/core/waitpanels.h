#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QTimer;

namespace core {

// Short wait panels that close themselves one second after they are shown; their callers
// show them (through showModal) while a long piece of work starts.

// "Please wait..." before a restore of the database.
class Form2 : public QDialog {
    Q_OBJECT
public:
    explicit Form2(QWidget* parent = nullptr);
    QLabel* Label1 = nullptr;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QTimer* timer_ = nullptr;
};

// "Calculating Report" with a bar its caller moves.
class frmprogress2 : public QDialog {
    Q_OBJECT
public:
    explicit frmprogress2(QWidget* parent = nullptr);
    QLabel* Label1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QTimer* timer_ = nullptr;
};

} // namespace core
