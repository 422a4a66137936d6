// The numbers of the text table (texts.txt), named for the code that asks LoadStringResource for them.
#pragma once

// Course screen, tool tips and the test screens.
inline constexpr int kResToolbar = 101;
inline constexpr int kResModules = 102;
inline constexpr int kResExitCourse = 103;
inline constexpr int kResPrintPage = 104;
inline constexpr int kResToolCheckProgress = 105;
inline constexpr int kResToolRepository = 106;
inline constexpr int kResGlossary = 107;
inline constexpr int kResToolEditProfile = 108;
inline constexpr int kResToolAboutCourse = 110;
inline constexpr int kResPreviousPage = 111;
inline constexpr int kResNextPage = 112;
inline constexpr int kResReturnTo = 113;
inline constexpr int kResScrollUp = 114;
inline constexpr int kResScrollDown = 115;
inline constexpr int kResPage = 116;
inline constexpr int kResQuestion = 117;
inline constexpr int kResOf = 118;
inline constexpr int kResFor = 119;
inline constexpr int kResYes = 120;
inline constexpr int kResNo = 121;
inline constexpr int kResOk = 122;
inline constexpr int kResCancel = 123;
inline constexpr int kResConfirmExitCourse = 124;
inline constexpr int kResExitingCourse = 125;
inline constexpr int kResCorrect = 126;
inline constexpr int kResIncorrect = 127;
inline constexpr int kResExplanation = 128;
inline constexpr int kResAnswer = 129;
inline constexpr int kResTestIntroduction = 130;
inline constexpr int kResNextQuestion = 131;
inline constexpr int kResCloseTest = 132;
inline constexpr int kResResultAllCorrect = 133;
inline constexpr int kResResultOutOf = 134;
inline constexpr int kResResultSomeCorrect = 135;
inline constexpr int kResResultFromModule = 136;
inline constexpr int kResReviewItems = 137;
inline constexpr int kResSubmit = 138;
inline constexpr int kResAllModules = 139;
inline constexpr int kResSaveAttachment = 140;
inline constexpr int kResSurveyHint = 141;
inline constexpr int kResExam = 142;
inline constexpr int kResMinimize = 143;
inline constexpr int kResSkipNavigation = 144;

// Welcome screen, waiting messages.
inline constexpr int kResWelcome = 150;
inline constexpr int kResWelcomeBack = 151;
inline constexpr int kResWelcomeClickSignIn = 152;
inline constexpr int kResWelcomeClickSwitchId = 153;
inline constexpr int kResWelcomeIfYouAreNot = 154;
inline constexpr int kResWelcomeSignIn = 155;
inline constexpr int kResSwitchId = 156;
inline constexpr int kResCheckingInternet = 157;
inline constexpr int kResSendingPage = 158;
inline constexpr int kResInternetConnection = 159;
inline constexpr int kResPrinting = 160;
inline constexpr int kResAssessmentReview = 161;

// Course selection.
inline constexpr int kResSelectCourse = 200;
inline constexpr int kResChangeCourse = 201;

// Repository.
inline constexpr int kResRepository = 250;
inline constexpr int kResOpen = 251;
inline constexpr int kResPrint = 252;
inline constexpr int kResClose = 253;
inline constexpr int kResDetach = 254;
inline constexpr int kResHelp = 255;

// Sign-in and registration.
inline constexpr int kResUserLogin = 300;
inline constexpr int kResRequestId = 302;
inline constexpr int kResFirstTimeSigningIn = 303;
inline constexpr int kResReturningUsers = 305;
inline constexpr int kResSelectName = 306;
inline constexpr int kResRegister = 308;
inline constexpr int kResLoginSignIn = 309;
inline constexpr int kResFirstTimeUser = 320;
inline constexpr int kResNewUserFirstName = 321;
inline constexpr int kResNewUserLastName = 322;
inline constexpr int kResNewUserEmail = 323;
inline constexpr int kResNewUserSignIn = 324;
inline constexpr int kResNewUserCancel = 325;

// Check-progress screen.
inline constexpr int kResStatusTitle = 350;
inline constexpr int kResTestResults = 351;
inline constexpr int kResHighest = 352;
inline constexpr int kResLast = 353;
inline constexpr int kResOverallProgress = 354;
inline constexpr int kResViewed = 355;
inline constexpr int kResNotViewed = 356;
inline constexpr int kResColorKey = 357;
inline constexpr int kResModuleProgress = 358;
inline constexpr int kResTopicProgress = 359;
inline constexpr int kResStatusClose = 360;
inline constexpr int kResStatusHelp = 361;

// Printer dialog.
inline constexpr int kResPrinterTitle = 375;
inline constexpr int kResPrinterName = 376;
inline constexpr int kResPrinter = 377;
inline constexpr int kResPrinterWhere = 378;
inline constexpr int kResPrinterOk = 379;
inline constexpr int kResPrinterCancel = 380;

// Edit-profile screen.
inline constexpr int kResProfileTitle = 400;
inline constexpr int kResProfileFirstName = 401;
inline constexpr int kResProfileLastName = 402;
inline constexpr int kResProfileEmail = 403;
inline constexpr int kResProfileEdit = 404;
inline constexpr int kResProfileCancel = 405;

// About screen.
inline constexpr int kResAboutTitle = 415;
inline constexpr int kResAboutClose = 416;
inline constexpr int kResPoweredBy = 417;
inline constexpr int kResAboutVersion = 418;
inline constexpr int kResAboutNotice = 419;

// Messages, titles and errors.
inline constexpr int kResNameLeadingSpace = 500;
inline constexpr int kResNameError = 501;
inline constexpr int kResError = 502;
inline constexpr int kResRunTitle = 503;
inline constexpr int kResEmailInvalid = 504;
inline constexpr int kResEmailError = 505;
inline constexpr int kResMustBeOnline = 506;
inline constexpr int kResFileNotFound = 507;
inline constexpr int kResConfirmOverwrite = 508;
inline constexpr int kResRepositoryError = 509;
inline constexpr int kResNameIllegalCharacters = 510;
inline constexpr int kResIllegalCharacter = 511;
inline constexpr int kResOutOfMemory = 512;
inline constexpr int kResRepositoryPathNotFound = 513;
inline constexpr int kResExecutableInvalid = 514;
inline constexpr int kResAccessError = 515;
inline constexpr int kResNoValidAssociation = 516;
inline constexpr int kResTargetBusy = 517;
inline constexpr int kResDdeFailed = 518;
inline constexpr int kResTimeOut = 519;
inline constexpr int kResLibraryNotFound = 520;
inline constexpr int kResNoAssociation = 521;
inline constexpr int kResSharingViolation = 522;
inline constexpr int kResOpenOrPrintError = 523;
inline constexpr int kResRepositoryFileMissing = 524;
inline constexpr int kResConfirmExitExam = 525;
inline constexpr int kResNoCoursesDetected = 526;
inline constexpr int kResNeedsShockwave = 527;
inline constexpr int kResNeedsFlash = 528;
inline constexpr int kResNoCoursesFound = 529;
inline constexpr int kResSurveyNeedsAllModules = 530;
inline constexpr int kResNotInAllModules = 531;
inline constexpr int kResAlreadyRunning = 532;
inline constexpr int kResResolutionBefore = 533;
inline constexpr int kResResolutionAfter = 534;
inline constexpr int kResResolutionTitle = 535;
inline constexpr int kResNoPrinter = 536;
inline constexpr int kResPageHasShockwave = 537;
inline constexpr int kResPageHasFlash = 538;
inline constexpr int kResTestNotFound = 539;
inline constexpr int kResReviewPageNotFound = 540;
inline constexpr int kResLinkModuleNotInstalled = 541;
inline constexpr int kResConfirmExitTest = 542;
inline constexpr int kResCourseDidNotLoad = 543;
