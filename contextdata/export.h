// Marks the library's public interface; everything else is hidden.
#pragma once

#define CONTEXTDATA_API __attribute__((visibility("default")))
