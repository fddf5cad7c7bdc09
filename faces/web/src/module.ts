// The script that embeds its logic, as a module and for require(). The element is defined when the
// script has run.
import {classesOfPage} from './define';
import {embeddedLogic} from './embedded';

export const {ZOLT20MapControlElement, ZOLT20Error} = classesOfPage(embeddedLogic);
