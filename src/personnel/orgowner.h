#pragma once

#include <QString>

// A screen that opens the organisation screens as its children (the employee screen) and is
// told when one of them saved a new entry: it fills its drop-downs again, then selects the
// new entry in the list named "Company", "Department", "Location" or "Position".
class OrgOwner {
public:
    virtual ~OrgOwner() = default;
    virtual void loadcombos() = 0;
    virtual void setnew(const QString& list, const QString& text) = 0;
};
