// The steps of an opening, which the network API tells on a thread of its own, for the main one.
#ifndef CTL_LINK_STEPS_H
#define CTL_LINK_STEPS_H

#include <deque>
#include <mutex>
#include <string>

#include "base/unique_fd.h"

namespace ctl {

class LinkSteps
{
public:
    LinkSteps() = default;
    ~LinkSteps(); // ends the watching
    LinkSteps(const LinkSteps&) = delete;
    LinkSteps& operator=(const LinkSteps&) = delete;

    // Collects each step from here on. Throws Failure.
    void watch();

    // Readable while there is a step to take; -1 before watch().
    int descriptor() const { return m_wake.get(); }

    // The oldest step that was not taken yet. False when there is none.
    bool take(std::string* step);

private:
    void add(const std::string& step);

    std::mutex m_mutex;
    std::deque<std::string> m_steps;
    base::UniqueFd m_wake;
};

} // namespace ctl

#endif
