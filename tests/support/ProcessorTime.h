#pragma once

#include <ctime>

namespace nalt::tests {

/// What the calling thread has worked since this was made. Other programs on a busy machine don't count.
class ProcessorTimer {
public:
  double seconds() const { return now() - start_; }

private:
  static double now()
  {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  }

  double start_ = now();
};

template <class Work>
double processorSeconds(Work&& work)
{
  const ProcessorTimer timer;
  work();
  return timer.seconds();
}

} // namespace nalt::tests
