#pragma once

#include <QString>

// Opens an employee in a screen of its own, filled with fresh drop-downs, as every list that
// leads to a record does. The number is taken as the list shows it (blanks around it are
// ignored).
void openEmployee(const QString& personnelNumber);
