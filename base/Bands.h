#pragma once

#include <functional>

/// Work on rows of pixels, shared out over the processors: the calling thread takes part, and threads that are free
/// help it, together no more than mostThreads(). Whoever calls here may be a helper already: where no thread is free,
/// or the system makes none, the calling one does it all, and nobody waits for work that has not begun. What is done by
/// several threads at once must not touch the same things, nor objects of the main thread.
namespace Bands {

/// How many threads work at once, those that call among them; 1 or more, at first one for each processor.
int mostThreads();
void setMostThreads(int threads);

/// Does `work` for bands that together cover rows 0 to `rows` - 1, each row once; where `rows` is 0 or less not at all.
/// Bands have `leastRows` (1 or more) to 2 x `leastRows` - 1 rows, fewer only where there are fewer; they are the same
/// whatever the number of threads. A single band is done by the calling thread alone. They begin from top
/// to bottom and end in any order; all have ended when this returns. What a band throws is thrown here once those that
/// had begun have ended, and no other one begins; of several the first to be thrown.
void forEach(int rows, int leastRows, const std::function<void(int first, int count)> &work);

/// Does `work` on the calling thread and on up to `mostHelpers` others, one time on each: for work that takes its
/// pieces itself and keeps memory from one to the next. A helper that has not begun when the calling thread is through
/// never begins. What `work` throws is thrown here once all have ended; of several the first to be thrown.
void shareOut(int mostHelpers, const std::function<void()> &work);

} // namespace Bands
