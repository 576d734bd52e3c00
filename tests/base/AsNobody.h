#pragma once

#include <QString>

#include <algorithm>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

/// What `work` tells when a person does it whom the system refuses what it refuses: tests may run as root.
inline QString toldToNobody(const std::function<QString()> &work)
{
    constexpr uid_t nobody = 65534;
    int ends[2]{};
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const bool isRoot = geteuid() == 0;
        if (isRoot && (setgroups(0, nullptr) != 0 || setresgid(nobody, nobody, nobody) != 0 ||
                       setresuid(nobody, nobody, nobody) != 0))
            _exit(1);
        const QByteArray told = work().toUtf8();
        _exit(::write(ends[1], told.constData(), static_cast<std::size_t>(told.size())) == told.size() ? 0 : 1);
    }
    close(ends[1]);
    QByteArray told(4096, Qt::Uninitialized);
    told.truncate(std::max<qsizetype>(0, ::read(ends[0], told.data(), static_cast<std::size_t>(told.size()))));
    close(ends[0]);
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    return QString::fromUtf8(told);
}
