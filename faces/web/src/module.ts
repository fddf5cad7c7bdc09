// The script that needs nothing beside it, as a module and for require(). The element is defined
// when the script is over.
import {classesOfPage} from './define';
import {embeddedLogic} from './embedded';

export const {ZOLT20MapControlElement, ZOLT20Error} = classesOfPage(embeddedLogic);
