#pragma once

#include <QByteArray>

class BkgndColorView;

// What a swatch hands on: the text of whatever was dropped on it as UTF-8 bytes, already
// checked to be valid UTF-8 (a null byte array when the text could not be read or was not
// UTF-8), with itself as sender so the receiver knows which sample it is.
class BkgndColorViewDelegate
{
public:
    virtual ~BkgndColorViewDelegate() = default;
    virtual void parseXML(const QByteArray &text, BkgndColorView *sender) = 0;
};
