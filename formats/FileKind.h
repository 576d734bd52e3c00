#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

/// What a file is that was given for something else, so that the refusal can say what to do with it.
namespace FileKind {

/// Whether the file begins like an archive, binary or XML. Error: what it is instead; `noun` is what was asked for,
/// "project" or "preset library".
[[nodiscard]] Result<void> checkArchive(const QByteArray &bytes, const QString &noun);

/// Whether the file may be a project as text. Error: it is an archive or a picture.
[[nodiscard]] Result<void> checkText(const QByteArray &bytes);

} // namespace FileKind
