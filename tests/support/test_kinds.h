#pragma once

namespace zk {

// Registers the control kinds that only tests build (ZKTestComposite, and ZKTestPlain, which
// has no Enabled), so that forms and scripts can place them; registering again does nothing.
void RegisterTestControlKinds();

}  // namespace zk
