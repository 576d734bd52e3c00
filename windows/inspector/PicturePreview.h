#pragma once

#include <QLabel>

/// A small picture of the file that is chosen in a file panel, and its size in pixels; empty for what is no picture.
class PicturePreview final : public QLabel
{
    Q_OBJECT

public:
    explicit PicturePreview(QWidget *parent = nullptr);

    void showFile(const QString &path);
};
