#pragma once

/// Creates the user's private copies of configuration and report files in UserConfFolder and UserReportFolder if they
/// are missing, and links the tables of the copied template files to the user's work tables if the report host is
/// installed. Existing files are not changed. The folder above both is made private; if it, or anything in it, is a
/// link or belongs to another user, nothing is created, and UserConfFolder and UserReportFolder are emptied. Failures
/// are recorded in the run history and the next step is tried; throws nothing. While no configuration connection is
/// open, the row is lost but its number is used.
void PrepareUserConfig();
