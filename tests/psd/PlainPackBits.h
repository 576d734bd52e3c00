#pragma once

#include <QByteArray>

/// PackBits byte by byte, with a buffer of pending bytes: what the fast packer must agree with.
namespace PlainPackBits {

QByteArray pack(const QByteArray &bytes);
/// The bytes that a stream stands for; empty where the stream is cut off.
QByteArray unpack(const QByteArray &stream);

} // namespace PlainPackBits
