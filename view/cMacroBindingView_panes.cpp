#include "cMacroBindingView.h"

void cMacroBindingView::onFade(qreal)
{ }

void cMacroBindingView::onPaneAndMaskEnterAnimation()
{ }

void cMacroBindingView::onPaneAndMaskExitAnimation()
{ }

void cMacroBindingView::onPaneAndMaskAnimationExitFinished()
{ }

void cMacroBindingView::onMainWindowClosing()
{ }
