#pragma once

// The resource texts of the page of database tables.
namespace calyx::ui::database_text {

inline constexpr int kTitle = 41100;
inline constexpr int kTablesName = 41101, kFieldsName = 41102;
inline constexpr int kCard = 41103;
inline constexpr int kSlot = 41104;  // {1} number

inline constexpr int kTableHeadings[] = {41110, 41111, 41112};
inline constexpr int kFieldHeadings[] = {41113, 41114, 41115, 41116};

inline constexpr int kNoCard = 41120;
inline constexpr int kNoTables = 41121;
inline constexpr int kNoFields = 41122;  // {1} table
inline constexpr int kFieldsOf = 41123;  // {1} table
inline constexpr int kChooseTable = 41124;

inline constexpr int kAddTable = 41130, kAddTableTip = 41131;
inline constexpr int kSample = 41132, kSampleTip = 41133;
inline constexpr int kRemoveTablesTip = 41134, kCopyTablesTip = 41135, kPasteTablesTip = 41136;
inline constexpr int kAddField = 41140, kAddFieldTip = 41141;
inline constexpr int kRemoveFields = 41142, kRemoveFieldsTip = 41143;
inline constexpr int kFieldUpTip = 41144, kFieldDownTip = 41145;

// steps and answers
inline constexpr int kTableAdded = 41150, kSampleAdded = 41151, kTableRemoved = 41152;  // {1} name
inline constexpr int kTablesRemoved = 41153, kTablesPasted = 41154;                     // {1} how many
inline constexpr int kTablePasted = 41155;                                              // {1} name
inline constexpr int kTablesCopied = 41156;                                             // {1} how many
inline constexpr int kNoTablesCopied = 41157;
inline constexpr int kNoRoomForTables = 41158;                    // {1} most
inline constexpr int kFieldAdded = 41160, kFieldRemoved = 41161;  // {1} table, {2} field
inline constexpr int kFieldsRemoved = 41162;                      // {1} table, {2} how many
inline constexpr int kFieldMoved = 41163;                         // {1} table, {2} field, {3} place
inline constexpr int kFieldsPasted = 41164;                       // {1} table, {2} how many
inline constexpr int kNoRoomForFields = 41165;                    // {1} most
inline constexpr int kNoFieldsCopied = 41166;
inline constexpr int kNoTableChosen = 41167;

}  // namespace calyx::ui::database_text
