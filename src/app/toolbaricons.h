#pragma once

#include <QIcon>
#include <QString>

// The icon of a toolbar button, by the button's key ("frmemployee", "frmesearch" ...): the
// desktop's icon theme where it has one for what the button does, else a picture drawn here,
// so that a desktop without a theme still shows eleven different buttons. A disabled button
// shows its icon greyed and faded.
QIcon toolbarIcon(const QString& key);

// The icon theme name the button asks the desktop for ("" for an unknown key).
QString toolbarThemeName(const QString& key);
