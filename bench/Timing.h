#pragma once

#include <QtGlobal>

#include <functional>

/// Something that is timed, with whatever it needs made ready beforehand.
struct Subject
{
    qint64 bytes;              ///< what the reference touches: the size of the raster that is written
    std::function<void()> run; ///< does the work once
};

/// How long the subject takes as a multiple of a plain `memset` of as many bytes. Both run in turn in the same rounds,
/// into memory that is there already; the result is the median of the rounds, since machines are noisy.
double timeOfMemset(const Subject &subject);
/// The same against a plain `memcpy` of as many bytes.
double timeOfMemcpy(const Subject &subject);
/// The same against reading as many bytes once, with `memchr`.
double timeOfReading(const Subject &subject);
/// How long some work takes as a multiple of other work, measured likewise.
double timeOf(const std::function<void()> &work, const std::function<void()> &reference);
