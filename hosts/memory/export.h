// Marks what the in-memory host offers beside the host services: the world builder, the journal, the fault plan.
#pragma once

#define CONTEXTDATA_MEMORY_HOST_API __attribute__((visibility("default")))
