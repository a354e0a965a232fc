# How Doxygen gets to read a header; every line stays where it is.

# The comment at the top is about the file.
1,/^#pragma once/ {
  s|^//|///|
  s|^#pragma once|/// @file|
}

# What every value can do by the language's own rules needs no words: being copied, moved and assigned.
s/^ *(explicit |constexpr )*([A-Za-z]+)\((const \2&|\2&&)[^;]*;//
s/^ *[A-Za-z:]+& operator=\([^;]*;//
# Nor does the transport of exceptions, which host/exceptions.h describes for all of them.
s/^ *const boost::exception_detail::clone_base\* clone\(\) const override;//
s/^ *\[\[noreturn\]\] void rethrow\(\) const override;//
s/^ *friend [a-z ]*bool operator==\([^;]*= default;//
