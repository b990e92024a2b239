#pragma once

#include <QString>

class BkgndColorView;

// What a swatch hands on: the text of whatever was dropped on it (a null string when the
// text could not be read), with itself as sender so the receiver knows which sample it is.
class BkgndColorViewDelegate
{
public:
    virtual ~BkgndColorViewDelegate() = default;
    virtual void parseXML(const QString &text, BkgndColorView *sender) = 0;
};
