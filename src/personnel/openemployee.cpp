#include "openemployee.h"

#include "frmemployee.h"

void openEmployee(const QString& personnelNumber) {
    auto* screen = new frmemployee;
    screen->loadcombos();
    // Shows the screen itself once it is filled.
    screen->loadperson(personnelNumber);
}
