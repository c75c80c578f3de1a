#pragma once

#include <QThreadPool>

namespace vintoral::test {

/// Under the thread sanitizer the toolkit's pool, which scales large pictures, keeps to one thread: it was
/// built without the sanitizer, which doesn't see the lock of its list of idle threads, and reports two that
/// take turns at it.
inline void PaintWithOneThread() {
#ifdef __SANITIZE_THREAD__
  QThreadPool::globalInstance()->setMaxThreadCount(1);
#endif
}

}  // namespace vintoral::test
