#pragma once

#include <QByteArrayList>

/// Archives with records as other writers have them, in XML unless it says otherwise.
namespace OtherArchives {

/// Their root is a list of all such records.
QByteArray list();
/// Lists of one wall each, which holds such a record in the place of a value.
QByteArrayList walls();
/// Likewise projects.
QByteArrayList projects();
/// What is no archive, or no property list, in one way each.
QByteArrayList damaged();

} // namespace OtherArchives
