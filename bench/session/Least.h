#pragma once

namespace blattwart::bench {

/// The least number of messages with which what is shown can be read from the host; docs/performance.md
/// derives it. Of so many drawings, the last one active, with so many paper layouts each; all are saved.
int leastForStart(int drawings, int layouts);
int leastForRefresh(int drawings, int layouts);
int leastForPlanList(int drawings, int layouts);
int leastForClick(int drawings, int layouts);

}  // namespace blattwart::bench
