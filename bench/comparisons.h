#pragma once

void addPanelComparisons();
void addSelecterComparisons();
