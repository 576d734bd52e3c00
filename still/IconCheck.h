#pragma once

#include <QByteArray>

namespace IconCheck {

/// Whether these bytes of a picture file can be given to Qt's reader. Always so unless they are a family of icons
/// (ICNS): Qt asks for as many bytes as a part of one claims to have, of a negative length for 8 GiB. One is refused of
/// which a part, or its table of contents, claims less than its own head or more than the file.
/// Layout: https://en.wikipedia.org/wiki/Apple_Icon_Image_format
bool isHarmless(const QByteArray &bytes);

} // namespace IconCheck
