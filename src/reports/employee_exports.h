#pragma once

class QWidget;

// Tools, Export: the current employees' names and addresses, and their salaries, each as a
// new spreadsheet in the documents folder, opened when written.
namespace reports {
void exportAddresses(QWidget* parent = nullptr);
void exportSalaries(QWidget* parent = nullptr);
} // namespace reports
