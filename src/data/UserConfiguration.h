#pragma once

/// Makes the user's own copies of configuration and report files where they are missing, in UserConfFolder and
/// UserReportFolder, and points the linked tables of the copied forms at the user's own work tables where the report
/// host is there. Existing files stay as they are. The folder that holds both becomes the
/// user's alone; where it is a link or another user's, or holds something of that kind, nothing is made or used, and
/// UserConfFolder and UserReportFolder are emptied. Whatever fails is written down and the next step is tried, so
/// nothing rises; while no configuration connection is open the row is lost and only uses up its number.
void PrepareUserConfig();
