#include "comm/upload.h"

#include <algorithm>
#include <functional>
#include <system_error>

#include "comm/link_texts.h"
#include "model/document/indicator.h"
#include "model/language/error.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

// Passes the link's progress on for as long as it lives.
class Watch : private ILinkEvents {
  public:
    Watch(CIndicatorComm& link, IUploadEvents& events) : events_(events), observer_(link, *this) {}

  private:
    void Receiving(std::size_t characters) override { events_.Received(characters); }
    void CancelGetData(bool& cancel) override { cancel |= events_.Cancelled(); }
    void CancelSendData(bool& cancel) override { cancel |= events_.Cancelled(); }

    IUploadEvents& events_;
    LinkObserver observer_;
};

using IsKnown = std::function<bool(std::string_view key)>;

bool HoldsParameters(std::string_view text, const IsKnown& isKnown) {
    const auto lines = ReadLines(text);
    return std::any_of(lines.begin(), lines.end(), [&](const KeyValue& line) { return isKnown(line.key); });
}

UploadReport Read(CIndicatorComm& link, const TargetVersion& target, const ResourceTexts& texts,
                  IUploadEvents& events, const IsKnown& isKnown) {
    using End = UploadReport::End;
    constexpr Gate kReadableAnyTime = Since("3.06.");
    if (link.CheckForStreaming()) return {End::Streaming, {}, texts.Text(link_text::kStreaming)};

    const Watch watch(link, events);
    // The version alone counts here, on purpose: the CB2 flag opens lines, it does not make a dump
    // possible.
    if (!target.Gated().Knows(kReadableAnyTime)) {
        const SendResult probe = link.AskForSetupMode();
        if (probe == SendResult::Cancelled) return {End::Cancelled, {}, {}};
        if (probe == SendResult::Refused || probe == SendResult::NoAnswer) {
            return {End::NotInSetupMode, {}, texts.Text(link_text::kNotInSetupMode)};
        }
    }
    events.Status(texts.Text(link_text::kReading));
    auto reply = link.GetData("DUMPALL\r");
    if (!reply) return {End::Cancelled, {}, {}};
    // An empty answer or a refusal must not replace a file.
    if (!HoldsParameters(*reply, isKnown)) return {End::NoDump, {}, texts.Text(link_text::kNoDump)};
    events.Received(reply->size());
    if (reply->find_last_of("\r\n") + 1 != reply->size())
        return {End::Incomplete, {}, texts.Text(link_text::kDumpCutOff)};
    return {End::Complete, std::move(*reply), {}};
}

}  // namespace

UploadReport Upload(CIndicatorComm& link, const ModelContext& context, IUploadEvents& events) {
    CIndicator known(context);
    known.Initialize();
    return Read(link, context.target, context.texts, events,
                [&](std::string_view key) { return known.OwnerOf(key) != nullptr; });
}

void WriteUpload(IFileStore& files, const ResourceTexts& texts, const std::string& path,
                 const std::string& text) {
    try {
        files.Replace(path, text);
    } catch (const std::system_error& error) {
        throw Error(code::kFileNotWritten, "Calyx.WriteUpload",
                    texts.Format(code::kFileNotWritten, {path, Reason(error)}));
    }
}

}  // namespace calyx
