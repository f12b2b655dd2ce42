#include "InstrumentParameters.h"

#include "MainWindowModel.h"
#include "Numbers.h"

SamplingInterval::SamplingInterval(const QString& text)
    : state_(text.isEmpty()            ? State::Unknown
            : text == NoIntervalText() ? State::None
                                       : State::Given)
    , text_(text)
{
}

double SamplingInterval::seconds() const { return isGiven() ? Numbers::Val(text_) : 0.0; }

bool SamplingInterval::isNumeric() const { return isGiven() && Numbers::IsNumeric(text_); }

void InstrumentParameters::show(MainWindowModel& main) const
{
    main.lblSystParameters(1).setCaption(units);
    main.lblSystParameters(2).setCaption(interval.text());
    for (int i = 0; i < OtherValueCount; ++i)
        main.lblSystParameters(i + 3).setCaption(otherValues[size_t(i)]);
}
