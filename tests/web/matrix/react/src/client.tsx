import {createRoot, hydrateRoot} from 'react-dom/client';

import {Application} from './application';
import {HydratedRule} from './hydrated_rule';
import {Rule} from './rule';

const root = document.getElementById('application')!;
if (root.hasChildNodes()) hydrateRoot(root, <Application Rule={HydratedRule} />);
else createRoot(root).render(<Application Rule={Rule} />);
