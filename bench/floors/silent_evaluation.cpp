#include "bench/floors/silent_evaluation.h"

#include <boost/make_shared.hpp>

#include "host/error_mode.h"
#include "host/evaluation.h"
#include "host/interpreter.h"
#include "host/streams.h"

namespace bench {

qxUniqueArray evaluatedSilently(const std::u16string& text, bool flag) {
    if (!inValidInterpreterAvailable()) {
        return {};
    }
    const boost::shared_ptr<OutputSink> sink = boost::make_shared<OutputCapture>();
    OutputStream& output = OutputStream::standardOutput();
    output.push(sink);
    OutputStream& error = OutputStream::standardError();
    error.push(sink);
    const qxErrorMode mode = getErrorMode();
    setErrorMode(qxErrorMode::disabled);
    qxArray* value = nullptr;
    inEvalExp(text, 1, &value, flag, inEvaluationSource::introspection);
    setErrorMode(mode);
    error.flush();
    error.pop();
    output.flush();
    output.pop();
    return qxUniqueArray(value);
}

}  // namespace bench
