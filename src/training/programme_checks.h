#pragma once

#include "programmes.h"

#include <QString>

namespace training {

// What OK finds wrong with a programme before saving it, "" when nothing. A date box holding
// text that is no date counts as empty, as leaving the box would have emptied it; a title
// that stands for no course counts as no title. Equal start and end dates pass.
// Then a time that is no time of day ("25:61") or a price that cannot be read is refused with
// a message naming the box.
QString checkProgramme(const ProgrammeText& programme);

// The time and price alone: the message for the first that cannot be stored, "" when both can.
QString unreadableValue(const ProgrammeText& programme);

} // namespace training
