#pragma once

#include <QString>

#include <optional>

class Layer;
class LWStill;

/// Why a picture's layer shows nothing.
namespace MissingPicture {

/// "it names no file", or why the file is not shown; nullopt where the picture is there. Loads it to know.
std::optional<QString> reason(const LWStill &still);

/// "LOGO is left out: …" where the layer is a picture that is not there, without a full stop; else nullopt.
std::optional<QString> sentenceOf(const Layer &layer);

/// What sentences call a picture.
QString nameOf(const Layer &picture);

} // namespace MissingPicture
