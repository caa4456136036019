#pragma once

class Form;
struct ListWindowDefinition;

/// What the windows over the staff have besides title, list and btn_戻る, and the places of all of them.
void BuildStaffItems(Form& form, const ListWindowDefinition& definition);
