// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Numbers of `Failure`, named once. The runtime's come first, then the data engine's (DAO).

namespace platform {

inline constexpr int kInvalidProcedureCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kFileNotFound = 53;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kForNotInitialised = 92;
inline constexpr int kInvalidUseOfNull = 94;
inline constexpr int kInvalidPropertyValue = 380;
inline constexpr int kInvalidPropertyIndex = 381;
inline constexpr int kFormAlreadyShown = 400;
inline constexpr int kModelessOverModal = 401;
inline constexpr int kTreeNoSuchKey = 35601;
inline constexpr int kTreeKeyNotUnique = 35602;
inline constexpr int kTreeKeyInvalid = 35603;

inline constexpr int kInvalidArgument = 3001;
inline constexpr int kTableAlreadyExists = 3010;
inline constexpr int kObjectNotFound = 3011;
inline constexpr int kNoSuchIndex = 3015;
inline constexpr int kNoCurrentIndex = 3019;
inline constexpr int kUpdateWithoutEdit = 3020;
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kDuplicateKey = 3022;
inline constexpr int kDatabaseFileNotFound = 3024;
inline constexpr int kDiskFull = 3026;
inline constexpr int kReadOnly = 3027;
inline constexpr int kDiskOrNetworkError = 3043;
inline constexpr int kPathNotValid = 3044;
inline constexpr int kRecordTooLarge = 3047;
inline constexpr int kNotADatabase = 3049;
inline constexpr int kCouldNotLockFile = 3050;
inline constexpr int kCannotOpenFile = 3051;
inline constexpr int kNullInPrimaryKey = 3058;
inline constexpr int kTooFewParameters = 3061;
inline constexpr int kUnknownColumn = 3061;
inline constexpr int kConstructNotSupported = 3065;
inline constexpr int kSyntaxError = 3075;
inline constexpr int kInputTableNotFound = 3078;
inline constexpr int kUndefinedFunction = 3085;
inline constexpr int kTextAfterEnd = 3142;
inline constexpr int kFieldTooSmall = 3163;
inline constexpr int kRecordDeleted = 3167;
inline constexpr int kFieldDefinedTwice = 3191;
inline constexpr int kDataChanged = 3197;
inline constexpr int kDatabaseAlreadyExists = 3204;
inline constexpr int kCouldNotLockTable = 3211;
inline constexpr int kInvalidOperation = 3219;
inline constexpr int kOperationNotSupported = 3251;
inline constexpr int kLockedByAnother = 3260;
inline constexpr int kTableInUse = 3262;
inline constexpr int kNoFieldDefined = 3264;
inline constexpr int kItemNotInCollection = 3265;
inline constexpr int kFieldInIndex = 3280;
inline constexpr int kPrimaryKeyAlreadyExists = 3283;
inline constexpr int kIndexAlreadyExists = 3284;
inline constexpr int kZeroLengthNotAllowed = 3315;
inline constexpr int kNotUpdatable = 3326;
inline constexpr int kUnrecognisedFormat = 3343;
inline constexpr int kNoSuchIndexOnTable = 3372;
inline constexpr int kNoSuchTable = 3376;
inline constexpr int kObjectInvalid = 3420;
inline constexpr int kConversionError = 3421;

} // namespace platform
