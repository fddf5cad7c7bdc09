import {renderToString} from 'react-dom/server';

import {Application} from './application';
import {HydratedRule} from './hydrated_rule';

export const render = async () => renderToString(<Application Rule={HydratedRule} />);
