#include <boost/make_shared.hpp>

#include "contextdata/workspace.h"
#include "host/evaluation.h"
#include "host/streams.h"

namespace {

/// Diverts a stream for a scope.
class Diversion {
public:
    Diversion(OutputStream& stream, const boost::shared_ptr<OutputSink>& sink) : stream_(stream) { stream_.push(sink); }
    Diversion(const Diversion&) = delete;
    Diversion& operator=(const Diversion&) = delete;
    ~Diversion() {
        stream_.flush();
        stream_.pop();
    }

private:
    OutputStream& stream_;
};

}  // namespace

bool EvalcExpSuccessful(const std::u16string& expression, int outputCount, qxArray** outputs, bool flag) {
    if (!inValidInterpreterAvailable()) {
        return false;
    }
    const boost::shared_ptr<OutputSink> nobody = boost::make_shared<OutputCapture>();
    const Diversion output(OutputStream::standardOutput(), nobody);
    const Diversion error(OutputStream::standardError(), nobody);
    const DisableErrorMode silence;
    return inEvalExp(expression, outputCount, outputs, flag, inEvaluationSource::introspection) ==
           inExecutionStatus::success;
}
