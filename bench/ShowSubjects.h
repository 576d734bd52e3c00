#pragma once

/// What an edit costs in a show of many layers, as a multiple of what it costs in a show of one. A QApplication exists.
/// The window shows both shows; their walls are small, stand side by side and are drawn without texts.
namespace ShowSubjects {

/// The number of columns of the selected wall, up to the repainted canvas.
double timeOfEdit(int layers);
/// Another wall is selected, up to the repainted window; against a show of two, since of one there is no other.
double timeOfSelection(int layers);
/// What the history keeps of an edit.
double memoryOfStep(int layers);

} // namespace ShowSubjects
