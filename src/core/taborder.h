#pragma once

#include <QList>

class QWidget;

namespace core {

// The controls of a screen that Tab stops at, in the order its layouts draw them: a grid row
// by row and left to right, a form row by row (label, then field), a box in its direction,
// the pages of a tab widget after its tabs. Creation order, Qt's own, goes astray as soon as
// a screen builds its controls in another order than it lays them out.
QList<QWidget*> layoutTabOrder(QWidget* screen);

// Chains Tab through `layoutTabOrder(screen)`. Every screen gets it from its screen base when
// it is first shown.
void applyLayoutTabOrder(QWidget* screen);

} // namespace core
