#pragma once

/// Stands before the C library and makes one of its calls fail, or ends the program at it. Only calls that concern
/// a file below one folder count, or allocations of at least 1 MiB; from arm() on.
namespace FaultShim {

enum class Call
{
    Write,  ///< pwrite and writev too
    Sync,   ///< fsync, fdatasync; of files, not of folders
    Rename, ///< link, too: how a file gets its name
    Open,
    Close,
    Read,
    Unlink, ///< rmdir, too
    Map,
    MakeFolder,
    Allocate ///< not by libplist
};

enum class Kind
{
    Once,   ///< the call fails, the next one does not
    Always, ///< the call and all that follow fail; of a write, half is written before
    Kill    ///< the program ends before the call
};

struct Fault
{
    Call call = Call::Write;
    int at = 0; ///< the number of the call, from 1 on; 0: none fails
    Kind kind = Kind::Once;
    int error = 0; ///< errno of a call that fails
};

/// How a program ends that is killed.
inline constexpr int killed = 77;

/// From now on each file has a name from the start, as on the file systems of sticks.
void nameAllFiles();

/// From now on calls are counted, on all threads. `folder` is an absolute path without links.
void arm(const char *folder, const Fault &fault);
/// No call fails any more. Returns how many were made since arm().
int disarm();

} // namespace FaultShim
