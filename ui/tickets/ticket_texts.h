#pragma once

// The resource texts of the ticket editor.
namespace calyx::ui::say {

// The table of formats.
inline constexpr int kTicketTableName = 40810;
inline constexpr int kTicketColumns[] = {40811, 40812, 40813, 40814, 40815};
inline constexpr int kOwnText = 40816;
inline constexpr int kDefaultText = 40817;
inline constexpr int kTicketsCopied = 40818;  // {1} how many
inline constexpr int kTicketsPasted = 40819;  // {1} how many, {2} the first one's place
inline constexpr int kTicketsNoRoom = 40820;  // {1} how many, {2} the first one's place
inline constexpr int kNoTicketCopied = 40821;
inline constexpr int kTicketLinesOdd = 40822;  // {1} lines
inline constexpr int kRestoreTickets = 40823;  // {1} how many
inline constexpr int kTicketsAreDefault = 40824;
inline constexpr int kRestoreTicket = 40825;  // {1} the format's place
inline constexpr int kTicketUse = 42410;      // + format, of those before the auxiliary ones
inline constexpr int kAuxiliaryUse = 42421;
inline constexpr int kAuditUse = 42422;

// The page of a format.
inline constexpr int kRestoreText = 40830;
inline constexpr int kRestoreTextTip = 40831;
inline constexpr int kRestoreTextStep = 40832;  // {1} format
inline constexpr int kTextIsDefault = 40833;
inline constexpr int kCopyTo = 40834;
inline constexpr int kCopyToTip = 40835;
inline constexpr int kCopyToStep = 40836;  // {1} from, {2} to
inline constexpr int kCopiedTo = 40837;    // {1} to
inline constexpr int kSameThere = 40838;   // {1} to
inline constexpr int kAuxiliaryFormats = 40839;
inline constexpr int kLengthOf = 40840;       // {1} characters, {2} most
inline constexpr int kTextTooLong = 40841;    // {1} characters too many, {2} most
inline constexpr int kNotOfAlphabet = 40842;  // {1} character
inline constexpr int kUnknownTokens = 40843;  // {1} tokens
inline constexpr int kDraftKept = 40844;      // {1} format, {2} what is wrong
inline constexpr int kNoLineBreak = 40845;

// The list of tokens.
inline constexpr int kTokens = 40850;
inline constexpr int kTokensHint = 40851;
inline constexpr int kTokenColumns[] = {40852, 40853, 40854};
inline constexpr int kNoTokenFits = 40855;  // {1} what was looked for
inline constexpr int kNoTokens = 40856;
inline constexpr int kTokenTip = 40857;  // {1} what it prints, {2} sample
inline constexpr int kUnknownTip = 40858;
inline constexpr int kBlank = 40859;
inline constexpr int kNewLine = 40860;
inline constexpr int kCompletions = 40861;

// The preview.
inline constexpr int kPreview = 40870;
inline constexpr int kPreviewName = 40871;
inline constexpr int kPageWords = 40872;  // {1} characters, {2} lines
inline constexpr int kUsesLines = 40873;  // {1} lines
inline constexpr int kUsesOneLine = 40874;
inline constexpr int kUsesPages = 40875;  // {1} lines, {2} pages
inline constexpr int kCutLine = 40876;    // {1} line, {2} characters
inline constexpr int kCutLines = 40877;   // {1} lines, {2} characters
inline constexpr int kPrintsNothing = 40878;
inline constexpr int kLineName = 40879;     // {1} number, {2} text
inline constexpr int kLineCutName = 40880;  // {1} number, {2} text
inline constexpr int kProposal = 40881;     // {1} characters, {2} lines
inline constexpr int kUseProposal = 40882;
inline constexpr int kProposalStep = 40883;  // {1} format
inline constexpr int kPageFollowed = 40884;  // {1} characters, {2} lines
inline constexpr int kSampleNote = 40885;

}  // namespace calyx::ui::say
