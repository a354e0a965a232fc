// Marks what the in-memory host offers beside the host services: the world builder, the journal, the fault plan.
#pragma once

/// Has default visibility in a host that hides the rest.
#define CONTEXTDATA_MEMORY_HOST_API __attribute__((visibility("default")))
