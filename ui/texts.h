#pragma once

// Numbers of the resource texts of the desktop program: 20300 to 20699. Captions carry their mnemonic
// ("&File").
namespace calyx::ui::say {

// menus
inline constexpr int kMenuFile = 20300;
inline constexpr int kMenuEdit = 20301;
inline constexpr int kMenuView = 20302;
inline constexpr int kMenuIndicator = 20303;
inline constexpr int kMenuTools = 20304;
inline constexpr int kMenuHelp = 20305;
inline constexpr int kNew = 20306;
inline constexpr int kOpen = 20307;
inline constexpr int kRecent = 20308;
inline constexpr int kSave = 20309;
inline constexpr int kSaveAs = 20310;
inline constexpr int kSaveCopy = 20311;
inline constexpr int kPrintTo = 20312;
inline constexpr int kImportFile = 20313;
inline constexpr int kExit = 20314;
inline constexpr int kUndo = 20315;
inline constexpr int kRedo = 20316;
inline constexpr int kUndoStep = 20317;  // {1} name of the step
inline constexpr int kRedoStep = 20318;  // {1} name of the step
inline constexpr int kFind = 20319;
inline constexpr int kToolBar = 20320;
inline constexpr int kStatusBar = 20321;
inline constexpr int kLinesPane = 20322;
inline constexpr int kBottomPanes = 20323;
inline constexpr int kTheme = 20324;
inline constexpr int kThemeSystem = 20325;
inline constexpr int kThemeLight = 20326;
inline constexpr int kThemeDark = 20327;
inline constexpr int kThemeContrast = 20328;
inline constexpr int kLinesAs = 20329;
inline constexpr int kPreviousPage = 20330;
inline constexpr int kNextPage = 20331;
inline constexpr int kNextPart = 42510;
inline constexpr int kPreviousPart = 42511;
inline constexpr int kConnect = 20332;
inline constexpr int kSimulated = 20333;
inline constexpr int kDisconnect = 20334;
inline constexpr int kSend = 20335;
inline constexpr int kRead = 20336;
inline constexpr int kCompare = 20337;
inline constexpr int kCheck = 20338;
inline constexpr int kAbout = 20339;
inline constexpr int kParameters = 20340;
inline constexpr int kKeyboard = 20341;
inline constexpr int kNoRecent = 20342;
inline constexpr int kContents = 20343;

// window
inline constexpr int kUntitled = 20360;
inline constexpr int kWindowTitle = 20361;  // {1} name of the file
inline constexpr int kFindHint = 20362;
inline constexpr int kFindName = 20363;
inline constexpr int kNothingFound = 20364;  // {1} what was typed
inline constexpr int kFindMore = 20365;      // {1} number
inline constexpr int kNavigationName = 20366;
inline constexpr int kGroupConfiguration = 20367;
inline constexpr int kGroupWeighing = 20368;
inline constexpr int kGroupOutput = 20369;
inline constexpr int kGroupOperator = 20370;
inline constexpr int kPorts = 20371;
inline constexpr int kProblemsHere = 20372;  // {1} number
inline constexpr int kNothingToUndo = 20373;
inline constexpr int kNothingToRedo = 20374;
inline constexpr int kNoProblemsFound = 20375;
inline constexpr int kNotInDocument = 20376;  // {1} key
inline constexpr int kUndone = 20377;         // {1} name of the step
inline constexpr int kRedone = 20378;         // {1} name of the step

// the note above a page
inline constexpr int kUnkept = 42300;      // {1} parameters
inline constexpr int kUnkeptOne = 42301;   // {1} parameter
inline constexpr int kUnkeptMore = 42302;  // {1} parameters, {2} how many more
inline constexpr int kNoteUndo = 42303;
inline constexpr int kNoteClose = 42304;

// what a place is for, where it is empty
inline constexpr int kForBoxes = 20643;

// lines
inline constexpr int kLinesTitle = 20400;
inline constexpr int kLinesListName = 20401;
inline constexpr int kLinesTarget = 20402;
inline constexpr int kAsFile = 20403;
inline constexpr int kAsSent = 20404;           // {1} firmware version
inline constexpr int kAsSentConnected = 20405;  // {1} firmware version
inline constexpr int kCb2 = 20406;
inline constexpr int kCb2Tip = 20407;
inline constexpr int kOnlyVersions = 20408;  // {1} versions in words
inline constexpr int kNeverSent = 20409;
inline constexpr int kChangedLine = 20410;
inline constexpr int kLinesEmpty = 20411;
inline constexpr int kLinesCount = 20412;        // {1} number
inline constexpr int kLinesSummary = 20413;      // {1}, {2} numbers
inline constexpr int kLinesSummarySent = 20414;  // numbers
inline constexpr int kCopyLines = 20415;
inline constexpr int kLinesCopied = 20416;  // {1} number

// panes
inline constexpr int kProblemsTab = 20425;
inline constexpr int kReportTab = 20426;
inline constexpr int kChangesTab = 20427;
inline constexpr int kLogTab = 20428;
inline constexpr int kTabCount = 20429;  // {1} caption, {2} number
inline constexpr int kProblemHeading = 20430;
inline constexpr int kWhereHeading = 20431;
inline constexpr int kGoTo = 20432;
inline constexpr int kNoProblems = 20433;
inline constexpr int kNoReport = 20434;
inline constexpr int kNoChanges = 20435;
inline constexpr int kNoLog = 20436;
inline constexpr int kParameterHeading = 20437;
inline constexpr int kKeyHeading = 20438;
inline constexpr int kSavedHeading = 20439;
inline constexpr int kNowHeading = 20440;
inline constexpr int kUndoChange = 20441;
inline constexpr int kNoLine = 20442;
inline constexpr int kLineHeading = 20443;
inline constexpr int kNoteHeading = 20444;
inline constexpr int kNoteText = 20445;
inline constexpr int kNoteUnknown = 20446;
inline constexpr int kNoteNotThere = 40040;
inline constexpr int kNoteDuplicate = 20447;
inline constexpr int kNoteList = 20448;           // {1} value
inline constexpr int kNoteNotUnderstood = 20449;  // {1} value
inline constexpr int kNotePartly = 20450;         // {1} value
inline constexpr int kNoteNotWritten = 20451;
inline constexpr int kNoteCut = 20452;  // {1} value
inline constexpr int kTextHeading = 20453;
inline constexpr int kPanesName = 20454;
inline constexpr int kFollows = 20455;  // {1} key

// status line
inline constexpr int kFactNew = 20460;
inline constexpr int kFactOpened = 20461;     // name, time
inline constexpr int kFactSaved = 20462;      // name, time
inline constexpr int kFactChanges = 20463;    // {1} fact, {2} number
inline constexpr int kFactOneChange = 20464;  // {1} fact
inline constexpr int kNotConnected = 20465;
inline constexpr int kConnectedTo = 20466;         // {1} what answered, {2} host and port
inline constexpr int kConnectedSimulated = 20467;  // {1} what answers
inline constexpr int kFactSent = 20468;            // {1} fact, {2} time
inline constexpr int kFactSentSince = 20469;       // {1} fact, {2} time, {3} number
inline constexpr int kTarget = 20470;              // {1} version
inline constexpr int kTargetCb2 = 20471;           // {1} version
inline constexpr int kFileFactName = 20472;
inline constexpr int kDeviceFactName = 20473;
inline constexpr int kTargetFactName = 20474;
inline constexpr int kFactNotSent = 20475;  // {1} fact, {2} number

// questions and messages
inline constexpr int kClose = 20480;
inline constexpr int kCancel = 20481;
inline constexpr int kErrorNumber = 20482;  // code, number, source, line, its file
inline constexpr int kUnsavedTitle = 20483;
inline constexpr int kUnsaved = 20484;  // name, number
inline constexpr int kSaveVerb = 20485;
inline constexpr int kDiscard = 20486;
inline constexpr int kOpenTitle = 20487;
inline constexpr int kOpenFailed = 20488;
inline constexpr int kOpenAnyway = 20489;
inline constexpr int kOpenAnywayHint = 20490;
inline constexpr int kForget = 20491;
inline constexpr int kSaveTitle = 20492;
inline constexpr int kSaveFailed = 20493;
inline constexpr int kSaveCopyTitle = 20494;
inline constexpr int kReplaceTitle = 20495;
inline constexpr int kReplace = 20496;
inline constexpr int kKeep = 20497;
inline constexpr int kLosesTitle = 20498;
inline constexpr int kLoses = 20499;  // name, number
inline constexpr int kSaveWithout = 20500;
inline constexpr int kSaveElsewhere = 20501;
inline constexpr int kPrintTitle = 20502;
inline constexpr int kTextFiles = 20503;
inline constexpr int kPdfFiles = 20504;
inline constexpr int kImportTitle = 20505;
inline constexpr int kImportFiles = 20506;
inline constexpr int kWritten = 20507;  // {1} path
inline constexpr int kNoticesTitle = 20508;
inline constexpr int kBusyTitle = 20509;
inline constexpr int kBusy = 20510;
inline constexpr int kUnexpected = 20511;  // {1} reason
inline constexpr int kUnexpectedTitle = 20512;
inline constexpr int kProgramFiles = 20513;
inline constexpr int kDroppedMany = 20514;
inline constexpr int kUnsavedOne = 20516;  // {1} name
inline constexpr int kInputTitle = 20517;
inline constexpr int kInputWrong = 20518;
inline constexpr int kKeepOldValue = 20519;
inline constexpr int kCorrect = 20520;
inline constexpr int kSettingsTitle = 20521;
inline constexpr int kDialogInFront = 20522;

inline constexpr int kPrintedBy = 20523;  // program version, time
inline constexpr int kPageOf = 20524;     // page, pages

// a file that another program has changed, or has open as well
inline constexpr int kChangedTitle = 42603;
inline constexpr int kChanged = 42604;  // {1} name
inline constexpr int kGoneTitle = 42605;
inline constexpr int kGone = 42606;  // {1} name
inline constexpr int kUnknownTitle = 42607;
inline constexpr int kUnknown = 42608;  // {1} name
inline constexpr int kSaveAnyway = 42609;
inline constexpr int kShowDifferences = 42610;
inline constexpr int kChangedNote = 42611;  // {1} name
inline constexpr int kGoneNote = 42612;     // {1} name
inline constexpr int kReload = 42613;
inline constexpr int kReloadTitle = 42614;
inline constexpr int kReloadLoses = 42615;     // {1} name, {2} number
inline constexpr int kReloadLosesOne = 42616;  // {1} name
inline constexpr int kReloadAnyway = 42617;
inline constexpr int kReloaded = 42618;  // {1} name
inline constexpr int kDifferencesTitle = 42619;
inline constexpr int kWindowSide = 42620;
inline constexpr int kFileSide = 42621;
inline constexpr int kSameAsFile = 42622;
inline constexpr int kElsewhereTitle = 42623;
inline constexpr int kElsewhere = 42624;  // {1} name, {2} number of the process, {3} time
inline constexpr int kElsewhereHint = 42625;
inline constexpr int kOpenCopy = 42626;
inline constexpr int kCopyOf = 42627;            // {1} name
inline constexpr int kAlsoElsewhere = 42628;     // {1} name
inline constexpr int kReplaceElsewhere = 42629;  // {1} name, {2} number of the process, {3} time
inline constexpr int kReplaceAnyway = 42630;
inline constexpr int kElsewhereUnknown = 42632;  // {1} name

// connecting
inline constexpr int kConnectTitle = 20525;
inline constexpr int kHost = 20526;
inline constexpr int kHostTip = 20527;
inline constexpr int kPort = 20528;
inline constexpr int kPortTip = 20529;
inline constexpr int kConnectNow = 20530;
inline constexpr int kUseSimulated = 20531;
inline constexpr int kSimulatedHint = 20532;
inline constexpr int kConnecting = 20533;  // {1} host and port
inline constexpr int kNeedHost = 20534;
inline constexpr int kNeedPort = 20535;
inline constexpr int kConnectedAlready = 20536;  // {1} where
inline constexpr int kDisconnectVerb = 20537;
inline constexpr int kNeedConnection = 20538;
inline constexpr int kNeedConnectionTitle = 20539;
inline constexpr int kNotConnectedAnyway = 20540;
inline constexpr int kLinkFailedTitle = 20541;
inline constexpr int kConnectVerb = 20542;
inline constexpr int kLogConnected = 20543;  // {1} where
inline constexpr int kLogDisconnected = 20544;
inline constexpr int kLogIdentified = 20545;  // {1} its answer
inline constexpr int kLogOut = 20546;         // {1} line sent
inline constexpr int kLogRefused = 20547;     // {1} line
inline constexpr int kLogDownload = 20548;    // numbers
inline constexpr int kLogRead = 20549;        // {1} number
inline constexpr int kLogNoAnswer = 20550;
inline constexpr int kSimulatorFailed = 20551;  // {1} reason
inline constexpr int kGivenUp = 20552;
inline constexpr int kWhereSimulated = 20553;

// sending
inline constexpr int kDownloadTitle = 20560;
inline constexpr int kDownloadWhat = 20561;
inline constexpr int kOptBase = 20562;
inline constexpr int kOptCalibration = 20563;
inline constexpr int kOptSetpoints = 20564;
inline constexpr int kOptWidgets = 20565;
inline constexpr int kOptSchemas = 20566;
inline constexpr int kOptProgram = 20567;
inline constexpr int kNoneOf = 20568;  // {1} caption
inline constexpr int kProgramFile = 20569;
inline constexpr int kBrowse = 20570;
inline constexpr int kStart = 20571;
inline constexpr int kAbort = 20572;
inline constexpr int kCloseMnemonic = 20573;
inline constexpr int kReady = 20574;    // {1} where, {2} target version
inline constexpr int kElapsed = 20575;  // {1} minutes and seconds
inline constexpr int kCurrentLine = 20576;
inline constexpr int kProgressName = 20577;
inline constexpr int kViewErrors = 20578;
inline constexpr int kNotNow = 20579;
inline constexpr int kNothingChosen = 20580;
inline constexpr int kNeedProgram = 20581;
inline constexpr int kErrorsTitle = 20582;
inline constexpr int kErrorLine = 20583;
inline constexpr int kErrorReason = 20584;
inline constexpr int kCopyErrors = 20585;
inline constexpr int kCalibrationNote = 20586;
inline constexpr int kDownloadFailedTitle = 20587;

// reading and comparing
inline constexpr int kUploadTitle = 20595;
inline constexpr int kReceived = 20596;  // {1} number
inline constexpr int kUploadFile = 20597;
inline constexpr int kCheckTitle = 20598;
inline constexpr int kCheckNow = 20599;
inline constexpr int kCompareTitle = 20600;
inline constexpr int kCompareFiles = 20601;
inline constexpr int kCompareSame = 20602;
inline constexpr int kCompareSameFiles = 20603;
inline constexpr int kCompareCount = 20604;  // {1} number
inline constexpr int kDocumentSide = 20605;
inline constexpr int kIndicatorSide = 20606;
inline constexpr int kCompareList = 20607;
inline constexpr int kNothingRead = 20608;

// help
inline constexpr int kAboutText = 20615;     // version, oldest and newest firmware
inline constexpr int kAboutFolders = 20616;  // folders
inline constexpr int kParametersTitle = 20617;
inline constexpr int kParametersFilter = 20618;
inline constexpr int kParametersName = 20619;
inline constexpr int kMeaning = 20620;
inline constexpr int kAllowed = 20621;
inline constexpr int kFirmware = 20622;
inline constexpr int kRangeWords = 20623;  // least, most, unit
inline constexpr int kAnyText = 20624;     // {1} width
inline constexpr int kAnyFreeText = 20625;
inline constexpr int kWholeNumber = 20626;
inline constexpr int kNumber = 20627;
inline constexpr int kSwitchWords = 20628;
inline constexpr int kDateWords = 20629;
inline constexpr int kKeyboardTitle = 20630;
inline constexpr int kKeyboardKeys = 20631;
inline constexpr int kKeyboardDoes = 20632;
inline constexpr int kKeyFieldHelp = 20633;
inline constexpr int kKeyLeave = 20634;
inline constexpr int kKeyFold = 20635;
inline constexpr int kKeyChoose = 20636;
inline constexpr int kKeyAct = 20637;
inline constexpr int kKeyItems = 42512;
inline constexpr int kKeyList = 42513;
inline constexpr int kKeyEdit = 42514;
inline constexpr int kKeyMove = 42515;
inline constexpr int kNothingFits = 20638;
inline constexpr int kNoHelpTitle = 20650;
inline constexpr int kNoHelp = 20651;
inline constexpr int kHelpNotOpened = 20652;  // {1} path

// filters of the find box
inline constexpr int kFilterChanged = 20655;
inline constexpr int kFilterNotDefault = 20656;
inline constexpr int kFilterProblems = 20657;
inline constexpr int kFilterNothing = 20658;
inline constexpr int kFilterHint = 20659;

// collections
inline constexpr int kItemColumn = 20700;
inline constexpr int kGoToHardware = 20701;
inline constexpr int kBackToList = 20702;  // {1} title of the place
inline constexpr int kPreviousItem = 20703;
inline constexpr int kNextItem = 20704;
inline constexpr int kDigital = 20705;
inline constexpr int kAnalog = 20706;
inline constexpr int kNoAnalog = 20707;
inline constexpr int kNoFieldbus = 20708;

inline constexpr int kLinesCountOne = 20417;

// hardware and ports
inline constexpr int kMainBoard = 20710;
inline constexpr int kMainBoardBrings = 20711;
inline constexpr int kSlotName = 20712;
inline constexpr int kShowBrought = 20713;
inline constexpr int kTakeCardOut = 20714;
inline constexpr int kTakeCardTitle = 20715;
inline constexpr int kTakeCardQuestion = 20716;
inline constexpr int kDropSettings = 20717;
inline constexpr int kKeepCard = 20718;
inline constexpr int kCardStep = 20719;
inline constexpr int kSampleName = 20730;
inline constexpr int kSampleOf = 20731;
inline constexpr int kGross = 20732;
inline constexpr int kNet = 20733;
inline constexpr int kTare = 20734;
inline constexpr int kStateOk = 20735;
inline constexpr int kStateMotion = 20736;
inline constexpr int kStateRange = 20737;
inline constexpr int kStateZero = 20738;
inline constexpr int kStateInvalid = 20739;
inline constexpr int kSavedFormats = 20740;
inline constexpr int kLoadFormat = 20741;
inline constexpr int kSaveFormat = 20742;
inline constexpr int kDeleteFormat = 20743;
inline constexpr int kSampleOwn = 20744;
inline constexpr int kSampleUsual = 20745;
inline constexpr int kNoSuchFormat = 20746;
inline constexpr int kLoadStep = 20747;
inline constexpr int kSaveFormatTitle = 20748;
inline constexpr int kReplaceFormat = 20749;
inline constexpr int kReplaceIt = 20750;
inline constexpr int kKeepFormat = 20751;
inline constexpr int kFormatSaved = 20752;
inline constexpr int kDeleteFormatTitle = 20753;
inline constexpr int kDeleteFormatQuestion = 20754;
inline constexpr int kDeleteIt = 20755;

// texts of other rooms that the windows use too
inline constexpr int kOpening = 109;
inline constexpr int kConfigurations = 111;
inline constexpr int kAllFiles = 112;
inline constexpr int kReplaceQuestion = 1013;
inline constexpr int kCheckAfterUpload = 1018;

}  // namespace calyx::ui::say
