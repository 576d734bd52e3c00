#pragma once

#include <QString>

#include <memory>

/// What the system says where a file is to be made in a folder that is not there.
QString reasonOfNoFolder();

/// No file of this program may grow beyond `bytes` while this lives: a disk that runs full.
class FullDisk
{
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

    /// What the system says of it.
    static QString reason();

private:
    struct Before;
    std::unique_ptr<Before> m_before;
};
