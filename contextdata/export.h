// Marks the library's public interface; everything else is hidden.
#pragma once

/// Marks what users of the library may call.
#define CONTEXTDATA_API __attribute__((visibility("default")))

/// Keeps a private member of a public class inside.
#define CONTEXTDATA_INSIDE __attribute__((visibility("hidden")))
