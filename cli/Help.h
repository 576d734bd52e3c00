#pragma once

#include <QString>

/// What --help prints, ended by a line break.
namespace Help {

QString general();
QString convert();
QString info();
QString check();
QString chart();

} // namespace Help
