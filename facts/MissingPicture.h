#pragma once

#include <QString>

#include <optional>

class LWStill;

/// Why a picture's layer shows nothing.
namespace MissingPicture {

/// "it names no file", or why the file is not shown; nullopt where the picture is there. Loads it to know.
std::optional<QString> reason(const LWStill &still);

} // namespace MissingPicture
