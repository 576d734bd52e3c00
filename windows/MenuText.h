#pragma once

#include <QString>

/// A text as it shall stand in a menu, where "&" is no letter.
inline QString menuText(QString text)
{
    return text.replace('&', "&&");
}
