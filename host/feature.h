// The host's feature switch.
#pragma once

#include "host/visibility.h"

/// The switch by which a host says whether its files have imports of their own.
class ComponentFeature {
public:
    /// Whether class names are resolved in the context of the code that mentions them. Interpreter thread; may
    /// throw any host failure or the interrupt.
    CONTEXTDATA_HOST_API static bool IsOn();
};
